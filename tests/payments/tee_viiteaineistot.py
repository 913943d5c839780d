#!/usr/bin/env python3
"""Writes the example payment files of the demonstration club: the same payments as the
fixed-width reference file (KTL) and as a camt.054 notification.

    python3 tests/payments/tee_viiteaineistot.py [--kanta demo1.mdb] [--kohde tests/payments/data]

The database is the demonstration club the program makes at its first start
($XDG_DATA_HOME/Vonari/demo1.mdb). The payments: six unpaid invoices paid to the cent (two of them
with the RF reference in the camt.054), one paid five euros too much, and one payment whose
reference no invoice has. tst_viiteaineisto_esittely checks the files against a freshly made club:
run this again when the club's generator changes.
"""
import argparse
import os
import sqlite3
from xml.sax.saxutils import escape

TILI = "FI1515903000093128"  # the club's first account
LUONTI = ("2026-11-25", "07:04")
KIRJAUS = "2026-11-24"
MAKSU = "2026-11-23"


def tarkiste(numero):
    painot = (7, 3, 1)
    summa = sum(int(n) * painot[i % 3] for i, n in enumerate(reversed(numero)))
    return str((10 - summa % 10) % 10)


def rf(viite):
    numero = int("".join(str(int(c, 36)) for c in viite + "RF00"))
    return "RF%02d%s" % (98 - numero % 97, viite)


def laskut(kanta):
    yhteys = sqlite3.connect("file:%s?mode=ro" % kanta, uri=True)
    rivit = yhteys.execute(
        "SELECT jmhjmViitenumero, jmhjmHinta, jrSukunimi, jrEtunimi FROM jmhist"
        " JOIN jr ON jrID = jmhjmjrID"
        " WHERE jmhjmMaksettu = 0 AND jmhjmHinta > 0 AND COALESCE(jmhjmEiLoppusummaa, 0) = 0"
        " AND jmhjmViitenumero <> ''"
        " ORDER BY jmhjmLaskupaiva DESC, jmhID LIMIT 7").fetchall()
    yhteys.close()
    if len(rivit) < 7:
        raise SystemExit("tietokannassa on alle seitsemän avointa laskua: %s" % kanta)
    # jmhjmHinta is money in ten-thousandths of a euro.
    return [(viite, hinta // 100, suku, etu) for viite, hinta, suku, etu in rivit]


def maksut(kanta):
    tulos = []
    for i, (viite, sentit, suku, etu) in enumerate(laskut(kanta)):
        if i == 6:
            sentit += 500  # an overpayment
        tulos.append(dict(viite=viite, sentit=sentit, suku=suku, etu=etu, rf=i in (1, 4)))
    tuntematon = "90210" + tarkiste("90210")
    tulos.append(dict(viite=tuntematon, sentit=2000, suku="Tuntematon", etu="Maksaja", rf=False))
    for i, m in enumerate(tulos):
        m["arkisto"] = "261124593VON%04d" % (i + 1)
    return tulos


def vvkkpp(iso):
    return iso[2:4] + iso[5:7] + iso[8:10]


def ktl(tiedot):
    rivit = ["0" + vvkkpp(LUONTI[0]) + LUONTI[1].replace(":", "") + "15" + "123456789" + "1"]
    for m in tiedot:
        nimi = ("%s %s" % (m["suku"], m["etu"])).upper()[:12]
        rivit.append("3" + TILI[4:] + vvkkpp(KIRJAUS) + vvkkpp(MAKSU) + m["arkisto"].ljust(16)
                     + m["viite"].rjust(20, "0") + nimi.ljust(12) + "1A" + "%010d" % m["sentit"]
                     + "0" + "A" + " ")
    summa = sum(m["sentit"] for m in tiedot)
    rivit.append("9" + "%06d" % len(tiedot) + "%011d" % summa + "%06d" % 0 + "%011d" % 0
                 + "%06d" % 0 + "%011d" % 0)
    return "".join(r.ljust(90) + "\r\n" for r in rivit).encode("iso-8859-1")


def euroina(sentit):
    return "%d.%02d" % (sentit // 100, sentit % 100)


def camt(tiedot):
    summa = euroina(sum(m["sentit"] for m in tiedot))
    tx = []
    for m in tiedot:
        viite = rf(m["viite"]) if m["rf"] else m["viite"]
        tx.append(
            "     <TxDtls>\n"
            "      <Refs><AcctSvcrRef>%s</AcctSvcrRef><EndToEndId>NOTPROVIDED</EndToEndId></Refs>\n"
            "      <AmtDtls><TxAmt><Amt Ccy=\"EUR\">%s</Amt></TxAmt></AmtDtls>\n"
            "      <RltdPties><Dbtr><Nm>%s</Nm></Dbtr></RltdPties>\n"
            "      <RmtInf><Strd><CdtrRefInf><Tp><CdOrPrtry><Cd>SCOR</Cd></CdOrPrtry></Tp>"
            "<Ref>%s</Ref></CdtrRefInf></Strd></RmtInf>\n"
            "      <RltdDts><AccptncDtTm>%sT00:00:00</AccptncDtTm></RltdDts>\n"
            "     </TxDtls>\n" % (m["arkisto"], euroina(m["sentit"]),
                                  escape("%s %s" % (m["etu"], m["suku"])), viite, MAKSU))
    aika = "%sT%s:00" % LUONTI
    return (
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.054.001.02\">\n"
        " <BkToCstmrDbtCdtNtfctn>\n"
        "  <GrpHdr><MsgId>VONARI-ESITTELY</MsgId><CreDtTm>%s</CreDtTm></GrpHdr>\n"
        "  <Ntfctn>\n"
        "   <Id>VONARI-ESITTELY-1</Id><CreDtTm>%s</CreDtTm>\n"
        "   <Acct><Id><IBAN>%s</IBAN></Id><Ccy>EUR</Ccy></Acct>\n"
        "   <Ntry>\n"
        "    <NtryRef>1</NtryRef><Amt Ccy=\"EUR\">%s</Amt><CdtDbtInd>CRDT</CdtDbtInd><Sts>BOOK</Sts>\n"
        "    <BookgDt><Dt>%s</Dt></BookgDt><ValDt><Dt>%s</Dt></ValDt>\n"
        "    <AcctSvcrRef>261124593VON0000</AcctSvcrRef>\n"
        "    <BkTxCd><Prtry><Cd>705 VIITESIIRROT</Cd><Issr>FFFS</Issr></Prtry></BkTxCd>\n"
        "    <NtryDtls>\n"
        "     <Btch><NbOfTxs>%d</NbOfTxs><TtlAmt Ccy=\"EUR\">%s</TtlAmt><CdtDbtInd>CRDT</CdtDbtInd></Btch>\n"
        "%s"
        "    </NtryDtls>\n"
        "   </Ntry>\n"
        "  </Ntfctn>\n"
        " </BkToCstmrDbtCdtNtfctn>\n"
        "</Document>\n" % (aika, aika, TILI, summa, KIRJAUS, KIRJAUS, len(tiedot), summa, "".join(tx))
    ).encode("utf-8")


def main():
    oletus = os.path.join(os.environ.get("XDG_DATA_HOME", os.path.expanduser("~/.local/share")),
                          "Vonari", "demo1.mdb")
    p = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    p.add_argument("--kanta", default=oletus)
    p.add_argument("--kohde", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "data"))
    a = p.parse_args()
    tiedot = maksut(a.kanta)
    with open(os.path.join(a.kohde, "esittely.ktl"), "wb") as f:
        f.write(ktl(tiedot))
    with open(os.path.join(a.kohde, "esittely_camt054.xml"), "wb") as f:
        f.write(camt(tiedot))


if __name__ == "__main__":
    main()
