#!/usr/bin/python3
"""An SMTP server on loopback for the mail tests, built on Debian's aiosmtpd.

Every message received is stored in the folder as NNN.eml (the bytes after the transport's
dot-stuffing is undone) with NNN.json beside it (envelope sender, accepted recipients, the
client's address and port, the login used). The chosen port is printed on the first line of
standard output once the server listens; the server stops when standard input closes.
"""
import argparse
import json
import os
import socket
import ssl
import sys
import logging
import warnings

from aiosmtpd.controller import Controller
from aiosmtpd.smtp import AuthResult


class Tallentaja:
    def __init__(self, kansio, hylatyt):
        self.kansio = kansio
        self.hylatyt = {h.lower() for h in hylatyt}
        self.laskuri = 0

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if address.lower() in self.hylatyt:
            return "550 5.1.1 <%s>: Recipient address rejected" % address
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        self.laskuri += 1
        nimi = os.path.join(self.kansio, "%03d" % self.laskuri)
        tiedot = {
            "mail_from": envelope.mail_from,
            "rcpt_tos": envelope.rcpt_tos,
            "peer": list(session.peer),
            "login": session.auth_data.login.decode("utf-8", "replace")
            if session.auth_data is not None else "",
        }
        with open(nimi + ".eml.tmp", "wb") as f:
            f.write(envelope.original_content)
        with open(nimi + ".json.tmp", "w", encoding="utf-8") as f:
            json.dump(tiedot, f)
        os.rename(nimi + ".json.tmp", nimi + ".json")
        os.rename(nimi + ".eml.tmp", nimi + ".eml")
        return "250 Message accepted for delivery"


def vapaa_portti():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def main():
    warnings.simplefilter("ignore")
    logging.disable(logging.CRITICAL)
    p = argparse.ArgumentParser()
    p.add_argument("--dir", required=True)
    p.add_argument("--refuse", action="append", default=[])
    p.add_argument("--user")
    p.add_argument("--password")
    p.add_argument("--tlscert")
    p.add_argument("--tlskey")
    p.add_argument("--smtps", action="store_true")
    a = p.parse_args()

    kwargs = {"enable_SMTPUTF8": False}
    if a.user is not None:
        def tunnistus(server, session, envelope, mechanism, auth_data):
            ok = (auth_data.login.decode() == a.user and auth_data.password.decode() == a.password)
            # handled=False: the server answers a refusal with 535 itself.
            return AuthResult(success=ok, handled=False, auth_data=auth_data)
        kwargs.update(authenticator=tunnistus, auth_required=True, auth_require_tls=False)
    ssl_context = None
    if a.tlscert:
        ctx = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        ctx.load_cert_chain(a.tlscert, a.tlskey)
        if a.smtps:
            ssl_context = ctx
        else:
            kwargs.update(tls_context=ctx, require_starttls=True)

    portti = vapaa_portti()
    c = Controller(Tallentaja(a.dir, a.refuse), hostname="127.0.0.1", port=portti,
                   ssl_context=ssl_context, **kwargs)
    c.start()
    print(portti, flush=True)
    try:
        sys.stdin.read()
    finally:
        c.stop()


if __name__ == "__main__":
    main()
