# Passes the tables on, and then gives each group's geometric mean of the ratios and its worst case.
{ print }
/^ +[0-9.]+  [a-z]/ {
  ++cases[$2]
  sum[$2] += log($1)
  if (cases[$2] == 1 || $1 < worst[$2]) {
    worst[$2] = $1
    where[$2] = substr($0, 31, 37)
    gsub(/ +/, " ", where[$2])
  }
}
END {
  print "\n| group | cases | geometric mean | worst | case |\n|---|---|---|---|---|"
  for (group in cases)
    printf "| %s | %d | %.2f | %.2f | %s |\n", group, cases[group], exp(sum[group] / cases[group]),
      worst[group], where[group] | "sort"
}
