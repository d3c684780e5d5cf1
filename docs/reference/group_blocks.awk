# A filter of the headers for Doxygen: the block of a group, and of a named part of it, is given to
# each function below, so that a function's page tells all that holds for it. (Doxygen's own
# DISTRIBUTE_GROUP_DOC repeats the block of a group's first function, not that of the group.)

/^\/\*\* @defgroup / { group = $3; title = rest(4); whole = part = ""; reading = "group" }
/^\/\*\* @name / { name = rest(3); part = ""; reading = "part" }

reading != "" {
  if (!/^\/\*\*/ && !/@ingroup/) block = block line() "\n"
  if (/\*\/ *$/) {
    if (reading == "part") part = " * @brief " name ".\n *\n" block
    else if (/@{/) whole = block
    block = reading = ""
  }
}
/^\/\*\* @} \*\// {
  if (part != "") part = ""
  else whole = ""
}
/^MOX_API / && whole != "" {
  printf "/**\n%s *\n%s *\n * @see @ref %s \"All of %s\"\n */\n", part, whole, group, title
}
{ print }

# The words of the line from number `first` on.
function rest(first,  i, words) {
  for (i = first; i <= NF; ++i) words = words (i > first ? " " : "") $i
  return words
}

# The comment's line without what opens and closes the group.
function line(  text) {
  text = $0
  sub(/ *(@{ *)?\*\/ *$/, "", text)
  return text ~ /^ \*/ ? text : " *" text
}
