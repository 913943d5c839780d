#!/usr/bin/python3
"""Reads a stored message with Python's own e-mail parser and prints what a mail reader would
show, as JSON: decoded subject and names, the text, the attachments (base64), and the raw form's
longest line and line ends."""
import base64
import email
import email.policy
import json
import sys

raw = open(sys.argv[1], "rb").read()
m = email.message_from_bytes(raw, policy=email.policy.default)


def osoitteet(otsake):
    h = m[otsake]
    return [[a.display_name, a.addr_spec] for a in h.addresses] if h is not None else []


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
