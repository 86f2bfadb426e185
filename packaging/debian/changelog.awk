# CHANGELOG.md as Debian writes changelogs.
#   awk -v maintainer='Name <address>' -v today='RFC 2822 date' -f changelog.awk CHANGELOG.md
# A version's own date is an ISO date in its heading; one without is dated today.
function ItemEnd(    words, n, i, line)
{
    n = split(item, words, " ")
    line = "  *"
    for (i = 1; i <= n; i++) {
        if (length(line) + 1 + length(words[i]) > 79) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    if (n > 0)
        print line
    item = ""
}
function VersionEnd()
{
    ItemEnd()
    if (version)
        printf "\n -- %s  %s\n", maintainer, date
}
/^## / {
    VersionEnd()
    date = today
    if (match($0, /[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]/))
        "date -Ru -d " substr($0, RSTART, RLENGTH) | getline date
    printf "%shopcast (%s) unstable; urgency=medium\n\n", version ? "\n" : "", $2
    version = $2
    next
}
/^- / { ItemEnd(); item = substr($0, 3); next }
/^  [^ ]/ && item { item = item " " substr($0, 3); next }
{ ItemEnd() }
END { VersionEnd() }
