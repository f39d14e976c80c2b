#!/bin/sh
# Brings resources/po up to date: brevant.pot holds the keys of keys.pot and every translate("…") of
# the desktop host, and each language gets the new messages, still untranslated (English: as they
# are written). Run it after adding or changing a text, then fill in the languages.
# With --check it changes nothing, and fails where something is out of date or untranslated.
# Needs gettext.
set -eu

cd "$(dirname "$0")/.."
po=resources/po

# Writes the template into the folder $1.
make_template() {
    find desktop -name '*.cc' | LC_ALL=C sort |
        xgettext --files-from=- --language=C++ --from-code=UTF-8 --keyword --keyword=translate --keyword=translatePlural:1,2 \
            --add-comments=Translators: --add-location=file --force-po --output="$1/desktop.pot"
    msgcat --use-first --add-location=file --output-file="$1/brevant.pot" "$po/keys.pot" "$1/desktop.pot"
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
