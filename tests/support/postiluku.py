#!/usr/bin/python3
"""Reads a stored message with Python's own e-mail parser and prints what a mail reader would
show, as JSON: decoded subject and names, the text, the attachments (base64), and the raw form's
longest line and line ends."""
import base64
import email
import email.policy
import json
import sys
from email.header import decode_header, make_header
from email.utils import getaddresses

raw = open(sys.argv[1], "rb").read()
m = email.message_from_bytes(raw, policy=email.policy.default)


vanha = email.message_from_bytes(raw, policy=email.policy.compat32)


def osoitteet(otsake):
    # The older interface joins adjacent encoded words as RFC 2047 says; the newer one keeps the
    # blank between them in a name.
    pari = getaddresses(vanha.get_all(otsake, []))
    return [[str(make_header(decode_header(n))), a] for n, a in pari]


body = m.get_body(("plain",))
lines = raw.split(b"\r\n")
print(json.dumps({
    "subject": str(m["subject"] or ""),
    "from": osoitteet("from"),
    "to": osoitteet("to"),
    "date": str(m["date"] or ""),
    "message_id": str(m["message-id"] or ""),
    "mime_version": str(m["mime-version"] or ""),
    # A reader shows the text's CRLF line ends as line ends.
    "body": body.get_content().replace("\r\n", "\n") if body is not None else None,
    "attachments": [{"name": p.get_filename(), "type": p.get_content_type(),
                     "data": base64.b64encode(p.get_payload(decode=True)).decode()}
                    for p in m.iter_attachments()],
    "defects": len(m.defects) + sum(len(p.defects) for p in m.walk()),
    "max_line": max(len(l) for l in lines),
    "bare_lf": raw.count(b"\n") - raw.count(b"\r\n"),
}))
