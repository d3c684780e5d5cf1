# gallery.sh SOURCE GALLERY: the pictures of the gallery are those that the program draws.
source "$(dirname "$0")/../install/common.sh"
"$2" "$scratch"
for picture in "$scratch"/*.svg "$1"/docs/pictures/*.svg; do
  name=$(basename "$picture")
  same "$name, which ./run pictures draws" "$scratch/$name" "$1/docs/pictures/$name"
done
