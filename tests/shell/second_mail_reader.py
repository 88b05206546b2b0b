"""Reads mails with Python's own library and compares each with what tarnwell-mail makes of it, field by field.

second_mail_reader.py READER FOLDER...: prints each disagreement as "FILE FIELD: tarnwell-mail's | Python's", then
how many mails and values were compared.
"""

import base64
import email.policy
import email.utils
import json
import pathlib
import subprocess
import sys
from datetime import datetime, timedelta, timezone

FIRST_DAY = datetime(1899, 12, 30, tzinfo=timezone.utc)  # of the desk's dates


def ours(reader, file):
    """What tarnwell-mail reads, in a time zone in which no clock is set forward."""
    answer = subprocess.run([reader, file], capture_output=True, env={"TZ": "UTC0"}, check=False).stdout
    read = json.loads(answer)
    if "error" in read:
        return {"error": read["error"]}
    item = read["item"]
    fields = item["fields"]
    sent = fields.get("SentOn")
    return {
        "error": "",
        "Subject": fields["Subject"],
        "Sender": [fields["SenderName"], fields["SenderSmtpAddress"]],
        "Recipients": [[each["kind"], each["name"], each.get("smtp", "")] for each in item.get("recipients", [])],
        "SentOn": round(sent["date"] * 86400) if sent else None,
        "Body": fields.get("Body", "").split(),
        "Attachments": [
            [each["file"], base64.b64decode(each.get("base64", "")).hex()]
            for each in item.get("attachments", [])
            if "item" not in each
        ],
    }


def people(message, field):
    """Name and address of each; the name is the address where there is none."""
    found = []
    for header in message.get_all(field, []):
        for address in header.addresses:
            found.append([address.display_name or address.addr_spec, address.addr_spec])
    return found


def theirs(file):
    """What Python's library reads. The words of a body are compared, since only one of both reads pages."""
    message = email.message_from_bytes(file.read_bytes(), policy=email.policy.default)
    kinds = (("To", 1), ("Cc", 2), ("Bcc", 3))
    body = message.get_body(("plain",))
    date = message["Date"]
    sent = date.datetime if date is not None else None
    if sent is not None and sent.tzinfo is None:
        sent = sent.replace(tzinfo=timezone.utc)
    return {
        "error": "",
        "Subject": str(message["Subject"] or "").strip(),
        "Sender": (people(message, "From") or [["", ""]])[0],
        "Recipients": [[kind, *each] for field, kind in kinds for each in people(message, field)],
        "SentOn": round((sent - FIRST_DAY) / timedelta(seconds=1)) if sent else None,
        "Body": body.get_content().split() if body else None,
        "Attachments": [
            [part.get_filename(), (part.get_payload(decode=True) or b"").hex()]
            for part in message.walk()
            if part.get_filename() and not part.is_multipart()
        ],
    }


def main(reader, *folders):
    """Compares all, and tells what differs."""
    mails = values = 0
    for file in sorted(file for folder in folders for file in pathlib.Path(folder).glob("*.eml")):
        mails += 1
        try:
            other = theirs(file)
        except Exception as error:  # the other reader's own failure is a disagreement, too
            other = {"error": type(error).__name__}
        read = ours(reader, file)
        for field, value in read.items():
            if field == "Body" and other.get(field) is None:
                continue  # only a page, which the other reader does not read
            values += 1
            if value != other.get(field):
                print(f"{file.stem} {field}: {str(value)[:150]} | {str(other.get(field))[:150]}")
    print(f"{mails} mails, {values} values")


main(*sys.argv[1:])
