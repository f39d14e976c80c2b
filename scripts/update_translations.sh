#!/bin/sh
# Brings resources/po up to date: brevant.pot holds the keys of keys.pot, every translate("…") of the
# desktop host and every tr("…"), summary and option of the command line, and each language gets the
# new messages, still untranslated (English: as they are written). Run it after adding or changing a text, then fill in the languages.
# With --check it changes nothing, and fails where something is out of date or untranslated.
# Needs gettext.
set -eu

cd "$(dirname "$0")/.."
po=resources/po

# The functions of a command line's description, and where they have the text for people.
usage_keywords() {
    for text in command:2 group:2 flag:2 text:2 path:2 optionalText:2 word:2 optionalWord:2 \
        optionalWordOr:3 number:2 set_help_flag:2 set_version_flag:3; do
        echo "--keyword=$text"
    done
}

# A translation must have the places %1, %2 … of its text.
with_places() {
    for text in translate:1 translatePlural:1 translatePlural:2 tr:1 trPlural:1 trPlural:2 marked:1; do
        echo "--flag=$text:kde-format"
    done
}

# Writes the texts of the folder $1 that stand behind the keywords $3… to the template $2.
extract() {
    sources=$1
    template=$2
    shift 2
    find "$sources" -name '*.cc' | LC_ALL=C sort |
        xgettext --files-from=- --language=C++ --kde --from-code=UTF-8 --keyword "$@" $(with_places) \
            --add-comments=Translators: --add-location=file --force-po --output="$template"
}

# Writes the template into the folder $1.
make_template() {
    extract desktop "$1/desktop.pot" --keyword=translate --keyword=translatePlural:1,2
    extract cli "$1/cli.pot" --keyword=tr --keyword=trPlural:1,2 --keyword=marked $(usage_keywords)
    msgcat --use-first --add-location=file --output-file="$1/brevant.pot" "$po/keys.pot" "$1/desktop.pot" "$1/cli.pot"
}

# Writes the language file $2, merged with the template, to $3.
merge_language() {
    msgmerge --quiet --no-fuzzy-matching --add-location=file --output-file="$3" "$2" "$1/brevant.pot"
    msgattrib --no-obsolete --add-location=file --output-file="$3" "$3"
    case $2 in
        */en.po) msgen --add-location=file --output-file="$3" "$3" ;;
    esac
}

# Says what is wrong with the committed file $2, which should read like $1.
check_file() {
    if ! cmp -s "$1" "$2"; then
        echo "$2 is out of date: run scripts/update_translations.sh"
        return 1
    fi
    case $2 in *.pot) return 0 ;; esac
    state=$(LC_ALL=C msgfmt --check --statistics --output-file=/dev/null "$2" 2>&1) || {
        echo "$state"
        return 1
    }
    case $state in
        *untranslated* | *fuzzy*)
            echo "$2: $state"
            return 1
            ;;
    esac
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

make_template "$work"
for language in "$po"/*.po; do
    merge_language "$work" "$language" "$work/$(basename "$language")"
done

if [ "${1:-}" != --check ]; then
    mv "$work/brevant.pot" "$work"/*.po "$po"
    exit 0
fi
failed=0
for file in brevant.pot $(cd "$po" && echo *.po); do
    check_file "$work/$file" "$po/$file" || failed=1
done
exit $failed
