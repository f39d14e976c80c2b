#!/bin/sh
# Draws resources/images/*.png from resources/artwork/*.svg. Run it after changing a drawing and
# commit both, so that a build needs no converter. Needs rsvg-convert (package librsvg2-bin).
set -eu

cd "$(dirname "$0")/../resources"

# A category's icon is kept at every scale; the others are asked for by their @2x name alone.
scales() {
    case $1 in
        cat_111 | *_widget | *_widget_light) echo 2 ;;
        *) echo 1 2 3 ;;
    esac
}

rm -f images/*.png
mkdir -p images
for drawing in artwork/*.svg; do
    name=$(basename "$drawing" .svg)
    for scale in $(scales "$name"); do
        case $scale in
            1) image=$name.png ;;
            *) image=$name@${scale}x.png ;;
        esac
        rsvg-convert --zoom "$scale" --output "images/$image" "$drawing"
    done
done
