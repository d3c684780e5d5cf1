# A filter of the Markdown pages for Doxygen, which a reader of the repository sees as they are:
#   [Add](../include/moxsp/arith.h#add)   leads to the group, here to its page
#   [meter.c](meter.c)                    alone on its line: the program itself stands here
#   [run](../run)                         what has no page keeps its name
# Links to other pages, and all within code, are left to Doxygen.
/^```/ { fence = !fence }
fence { print; next }

/^\[[^]]*\]\([^)\/]*\.c\)$/ {
  file = $0
  gsub(/^.*\(|\)$/, "", file)
  folder = FILENAME
  sub(/[^\/]*$/, "", folder)
  print "```c"
  while ((getline code < (folder file)) > 0) print code
  print "```"
  next
}
{
  out = ""
  while (match($0, /\[[^]]*\]\([^)]*\)/)) {
    link = substr($0, RSTART, RLENGTH)
    before = substr($0, 1, RSTART - 1)
    $0 = substr($0, RSTART + RLENGTH)
    label = target = link
    sub(/\]\(.*/, "", label)
    label = substr(label, 2)
    gsub(/^.*\]\(|\)$/, "", target)
    if (target ~ /\.h#/) { sub(/^.*#/, "", target); link = "@ref " target " \"" label "\"" }
    else if (target ~ /\.h$/) { sub(/^.*include\//, "", target); link = "@ref " target " \"" label "\"" }
    else if (target !~ /^#|:|\.(md|svg|png)(#.*)?$/) link = label
    out = out before link
  }
  print out $0
}
