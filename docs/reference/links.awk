# A filter of the Markdown pages for Doxygen, which a reader of the repository sees as they are:
#   [Add](../include/moxsp/arith.h#add)   leads to the group, here to its page
#   [tables](families.md#conversions)     leads to a heading, which gets the name families_conversions
#   [meter.c](meter.c)                    alone on its line: the program itself stands here
#   [run](../run)                         what has no page keeps its name
# Links to whole pages, and all within code, are left to Doxygen.

/^```/ { fence = !fence }
fence { print; next }

/^##+ / {
  slug = tolower($0)
  gsub(/^#+ |[^a-z0-9 -]/, "", slug)
  gsub(/ /, "-", slug)
  print $0 " {#" page(FILENAME) "_" slug "}"
  next
}

/^\[[^]]*\]\([^)\/]*\.c\)$/ {
  print "```c"
  while ((getline code < (folder(FILENAME) target($0))) > 0) print code
  print "```"
  next
}

# The list of a folder's pages puts them below itself.
FILENAME ~ /docs\/[^\/]*\/README\.md$/ && /^- \[[^]]*\]\([^)]*\.md\)$/ {
  parent = folder(FILENAME)
  gsub(/^.*docs\/|\/$/, "", parent)
  print "- @subpage md_docs_" parent "_" page(target($0)) " \"" label($0) "\""
  next
}

{
  out = ""
  while (match($0, /\[[^]]*\]\([^)]*\)/)) {
    out = out substr($0, 1, RSTART - 1) linked(substr($0, RSTART, RLENGTH))
    $0 = substr($0, RSTART + RLENGTH)
  }
  print out $0
}

function label(text) { sub(/\]\(.*/, "", text); sub(/^.*\[/, "", text); return text }
function target(text) { gsub(/^.*\]\(|\)$/, "", text); return text }
function folder(file) { sub(/[^\/]*$/, "", file); return file }
function page(file) { gsub(/^.*\/|\.md$/, "", file); return file }
function ref(name, text) { return "@ref " name " \"" text "\"" }

function linked(text,  to, place) {
  to = place = target(text)
  sub(/#.*/, "", to)
  if (!sub(/^.*#/, "", place)) place = ""
  if (to ~ /:/) return text
  if (to ~ /\.h$/ && place != "") return ref(place, label(text))
  if (to ~ /\.h$/) { sub(/^.*include\//, "", to); return ref(to, label(text)) }
  if (place != "") return ref(page(to == "" ? FILENAME : to) "_" place, label(text))
  return to ~ /\.(md|svg|png)$/ ? text : label(text)
}
