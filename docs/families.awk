# Filters a header for Doxygen. In the headers a comment tells of all declarations below it, up to the next blank line or
# comment; Doxygen knows only comments on a single declaration, so the comment is repeated above each of the others.

# Follows the brackets of the line: a declaration ends with a semicolon or a body outside of all brackets.
function follow(line)
{
    sub(/\/\/.*/, "", line)
    depth += gsub(/[({]/, "&", line) - gsub(/[)}]/, "&", line)
    if (depth <= 0 && line ~ /[;}] *$/) {
        inside = 0
        depth = 0
    }
}

inside { print; follow($0); next }

# The bases of a class.
head { print; head = !/{/; next }

/^ *\/\/\/ / && !/\/\/\/ *(\\name|\\file|@[{}])/ {
    if (!commenting)
        comment = ""
    commenting = 1
    comment = comment $0 "\n"
    print
    next
}

/^ *$/ || /^ *\/\// || /^ *(public|protected|private):/ || /^#/ || /^ *[{}]/ {
    comment = ""
    commenting = 0
    print
    next
}

# Types tell of themselves.
/^ *(class|struct|enum|union|namespace|friend) / {
    comment = ""
    commenting = 0
    head = !/[;{]/
    print
    next
}

{
    if (!commenting && !continued && comment != "" && !/= delete;|~|\/\/\/</)
        printf "%s", comment
    commenting = 0
    print
    continued = /^ *template/ && !/;/
    if (!continued) {
        inside = 1
        depth = 0
        follow($0)
    }
}
