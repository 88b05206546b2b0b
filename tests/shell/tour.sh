# The tour goes the ten steps of the first page. One whose option is off is named and makes it fail; the page tells it of that
# one alone, and has a picture of each.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install build wine script run
folder=$BUILD/${TARNWELL_PLACE:-script} tour_folder=$work/tour
title="A mail that you send becomes a note, too"
friendly_rows() { row 'HKEY_CURRENT_USER\Software\Microsoft\Office\9.0\Outlook\Options\Tarnwell' EnableQuickView 1; }

lock "$folder.lock" "a script runs; waiting for it"
start_display
use_prefix "${folder##*/}"
begin_tour
echo "the table of <mails>" >"$tour_folder/mails.txt"
expect 1 tour_steps "$folder"
says "step 5 did not do what it says: $title"
says "9 of 10 steps did what they say"
[[ $(grep -c "did not do" <<<"$err") == 1 ]] || wrong "another step failed: $err"

make_tour_page
page=$tour_folder/index.html
# in_page COUNT TEXT: how many lines of the page hold this text.
in_page() { (($(grep -cF -e "$2" "$page") == $1)) || wrong "the page has '$2' on $(grep -cF -e "$2" "$page") lines, not on $1"; }
in_page 10 'src="data:image/png;base64,iVBOR'
in_page 10 '<section id="step-'
in_page 9 '<td class="done">yes</td>'
in_page 1 '<td class="failed">no</td>'
in_page 1 'the table of &lt;mails&gt;'
for picture in "$tour_folder"/*.png; do
    (($(identify -format '%w' "$picture") > 500)) || wrong "there is next to nothing in ${picture##*/}"
done
(($(grep -cE '(src|href)="(https?:|/)' "$page") == 0)) || wrong "the page needs something beside itself"
