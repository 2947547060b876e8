#!/usr/bin/env python3
"""Reads a message as a mail program would and prints what the tests check, as JSON."""
import email
import email.policy
import email.utils
import json
import re
import sys

raw = open(sys.argv[1], "rb").read()
message = email.message_from_bytes(raw, policy=email.policy.default)
date = email.utils.parsedate_to_datetime(message["Date"]) if message["Date"] else None


def addresses(header):
    return list(message[header].addresses) if message[header] else []


print(json.dumps({
    "subject": str(message["Subject"]),
    "to": [address.addr_spec for address in addresses("To")],
    "to_names": [address.display_name for address in addresses("To")],
    "from": [address.addr_spec for address in addresses("From")],
    "date_has_zone": date is not None and date.tzinfo is not None,
    "message_id": bool(re.fullmatch(r"<[^<>@\s]+@[^<>@\s]+>", str(message["Message-ID"]).strip())),
    "content_type": message.get_content_type(),
    "charset": message.get_content_charset(),
    "body": message.get_content(),
    "seven_bit": all(byte < 128 for byte in raw),
}))
