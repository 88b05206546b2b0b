# Each mail is read as a second reader reads it, Python's, but for what is listed here with its reason.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

reader=$PWD/build/native/bin/tarnwell-mail

# MAIL FIELD: REASON, for each value in which both disagree. In all of them the mail shows more, or what its writer meant.
listed='01-no-closing-boundary Attachments: Python takes the last line end for that of a boundary that is not there
03-line-that-is-no-field Subject: for Python the header ends at such a line
03-line-that-is-no-field Body: for Python the header ends at such a line
03-mixed-pdf-third-address Body: Python shows the first text alone, not the one behind the file
05-blank-first-line Subject: for Python an empty line is a whole header
05-blank-first-line Sender: for Python an empty line is a whole header
05-blank-first-line Recipients: for Python an empty line is a whole header
05-blank-first-line SentOn: for Python an empty line is a whole header
06-padded-first-line Sender: Python leaves a padded first line out
10-raw-8-bit-header Subject: Python does not read bare letters in the character set of the text
10-raw-8-bit-header Sender: Python does not read bare letters in the character set of the text
12-names-without-angle-brackets Sender: Python takes the name for a piece of the address
12-names-without-angle-brackets Recipients: Python takes the name for a piece of the address
16-forwarded-message Attachments: Python counts the files of the message inside, too
17-private Sender: Python does not read bare letters as the UTF-8 that they are
22-unknown-delivery-report Sender: Python does not know a name in brackets behind the address
22-unknown-delivery-report Attachments: Python leaves out what has no name
24-contact-without-account Sender: Python does not know a name in brackets behind the address
24-contact-without-account Attachments: Python leaves out what has no name'

python3 tests/shell/second_mail_reader.py "$reader" data/sample/mails tests/mails >"$work/told"
[[ $(tail -n 1 "$work/told") == "43 mails, 292 values" ]] || wrong "compared were $(tail -n 1 "$work/told")"
expect 0 diff <(cut -d: -f1 <<<"$listed" | LC_ALL=C sort) <(head -n -1 "$work/told" | cut -d: -f1 | LC_ALL=C sort)
