#include "payments/Camt054Jasennin.h"

#include <QXmlStreamReader>

namespace camt054 {
namespace {

// Reads the document into the structs; knows the element names and nothing of their meaning.
class Jasennin {
public:
    explicit Jasennin(const QByteArray &tavut) : r(tavut) {}

    QList<Ilmoitus> lue()
    {
        QList<Ilmoitus> ilmoitukset;
        if (r.readNextStartElement()) {
            if (r.name() != u"Document")
                Virhe(QStringLiteral("tiedoston juurielementti on %1, ei Document.").arg(r.name()));
            const QStringView nimiavaruus = r.namespaceUri();
            if (!nimiavaruus.startsWith(u"urn:iso:std:iso:20022:tech:xsd:camt.054."))
                Virhe(nimiavaruus.isEmpty()
                          ? QStringLiteral("tiedostosta puuttuu ISO 20022 -nimiavaruus.")
                          : QStringLiteral("tiedosto on %1, ei viiteilmoitus (camt.054).").arg(nimiavaruus));
            lapset([&](QStringView nimi) {
                if (nimi != u"BkToCstmrDbtCdtNtfctn")
                    return false;
                lapset([&](QStringView n) {
                    if (n == u"GrpHdr")
                        lapset([&](QStringView m) { return teksti(m, u"CreDtTm", ryhmanLuontiaika); });
                    else if (n == u"Ntfctn")
                        ilmoitukset.append(ilmoitus());
                    else
                        return false;
                    return true;
                });
                return true;
            });
        }
        while (!r.atEnd())
            r.readNext();
        tarkistaRakenne();
        for (Ilmoitus &i : ilmoitukset)
            if (i.luontiaika.isEmpty())
                i.luontiaika = ryhmanLuontiaika;
        return ilmoitukset;
    }

private:
    QXmlStreamReader r;
    QString ryhmanLuontiaika;

    // Walks the children of the element at hand; `f` reads a child it knows and answers true, or
    // answers false and the child is skipped.
    template <class F>
    void lapset(F f)
    {
        while (r.readNextStartElement())
            if (!f(r.name()))
                r.skipCurrentElement();
    }

    QString tekstiNyt() { return r.readElementText(QXmlStreamReader::IncludeChildElements).trimmed(); }

    bool teksti(QStringView nimi, QStringView haettu, QString &kohde)
    {
        if (nimi != haettu)
            return false;
        kohde = tekstiNyt();
        return true;
    }

    bool rahaa(QStringView nimi, QStringView haettu, QString &summa, QString &valuutta)
    {
        if (nimi != haettu)
            return false;
        valuutta = r.attributes().value(QLatin1String("Ccy")).toString();
        summa = tekstiNyt();
        return true;
    }

    // <X><Dt>…</Dt></X> or <X><DtTm>…</DtTm></X>
    bool paiva(QStringView nimi, QStringView haettu, QString &kohde)
    {
        if (nimi != haettu)
            return false;
        lapset([&](QStringView n) { return teksti(n, u"Dt", kohde) || teksti(n, u"DtTm", kohde); });
        return true;
    }

    // A party's name: <Nm> right under it, or under <Pty> in the newer versions.
    bool nimi(QStringView n, QStringView haettu, QString &kohde)
    {
        if (n != haettu)
            return false;
        lapset([&](QStringView m) {
            if (m == u"Pty")
                return nimi(m, u"Pty", kohde);
            return teksti(m, u"Nm", kohde);
        });
        return true;
    }

    Ilmoitus ilmoitus()
    {
        Ilmoitus i;
        lapset([&](QStringView n) {
            if (n == u"Acct") {
                lapset([&](QStringView a) {
                    if (a != u"Id")
                        return false;
                    lapset([&](QStringView t) {
                        if (t == u"Othr")
                            lapset([&](QStringView o) { return teksti(o, u"Id", i.muuTili); });
                        else
                            return teksti(t, u"IBAN", i.iban);
                        return true;
                    });
                    return true;
                });
                return true;
            }
            if (n == u"Ntry") {
                i.kirjaukset.append(kirjaus());
                return true;
            }
            return teksti(n, u"CreDtTm", i.luontiaika);
        });
        return i;
    }

    Kirjaus kirjaus()
    {
        Kirjaus k;
        lapset([&](QStringView n) {
            if (n == u"NtryDtls") {
                k.erittelyt.append(erittely());
                return true;
            }
            return rahaa(n, u"Amt", k.summa, k.valuutta) || teksti(n, u"CdtDbtInd", k.suunta)
                   || teksti(n, u"RvslInd", k.peruutus) || teksti(n, u"Sts", k.tila)
                   || paiva(n, u"BookgDt", k.kirjauspaiva) || paiva(n, u"ValDt", k.arvopaiva)
                   || teksti(n, u"AcctSvcrRef", k.arkistointitunnus) || teksti(n, u"NtryRef", k.tunniste);
        });
        return k;
    }

    Erittely erittely()
    {
        Erittely e;
        lapset([&](QStringView n) {
            if (n == u"Btch") {
                lapset([&](QStringView b) {
                    return teksti(b, u"NbOfTxs", e.kpl) || rahaa(b, u"TtlAmt", e.kokonaissumma, e.kokonaisValuutta);
                });
                return true;
            }
            if (n == u"TxDtls") {
                e.maksut.append(maksu());
                return true;
            }
            return false;
        });
        return e;
    }

    Maksu maksu()
    {
        Maksu m;
        QString suoraSumma, suoraValuutta;
        lapset([&](QStringView n) {
            if (n == u"Refs") {
                lapset([&](QStringView a) { return teksti(a, u"AcctSvcrRef", m.arkistointitunnus); });
            } else if (n == u"AmtDtls") {
                lapset([&](QStringView a) {
                    if (a != u"TxAmt")
                        return false;
                    lapset([&](QStringView b) { return rahaa(b, u"Amt", m.summa, m.valuutta); });
                    return true;
                });
            } else if (n == u"RltdPties") {
                lapset([&](QStringView p) {
                    return nimi(p, u"Dbtr", m.maksaja) || nimi(p, u"UltmtDbtr", m.lopullinenMaksaja);
                });
            } else if (n == u"RmtInf") {
                lapset([&](QStringView s) {
                    if (s != u"Strd")
                        return false;
                    lapset([&](QStringView c) {
                        if (c != u"CdtrRefInf")
                            return false;
                        QString viite;
                        lapset([&](QStringView v) { return teksti(v, u"Ref", viite); });
                        if (m.viite.isEmpty())
                            m.viite = viite;
                        return true;
                    });
                    return true;
                });
            } else if (n == u"RltdDts") {
                lapset([&](QStringView d) { return teksti(d, u"AccptncDtTm", m.maksupaiva); });
            } else {
                return rahaa(n, u"Amt", suoraSumma, suoraValuutta);
            }
            return true;
        });
        if (m.summa.isEmpty()) {
            m.summa = suoraSumma;
            m.valuutta = suoraValuutta;
        }
        return m;
    }

    void tarkistaRakenne()
    {
        switch (r.error()) {
        case QXmlStreamReader::NoError:
            return;
        case QXmlStreamReader::PrematureEndOfDocumentError:
            Virhe(QStringLiteral("tiedosto on katkennut kesken (rivi %1).").arg(r.lineNumber()),
                  ViiteaineistoVirhe::Katkennut);
        default:
            Virhe(QStringLiteral("XML-rakenne on rikki rivillä %1, sarakkeessa %2.")
                      .arg(r.lineNumber())
                      .arg(r.columnNumber()));
        }
    }
};

} // namespace

QList<Ilmoitus> Jasenna(const QByteArray &tavut)
{
    return Jasennin(tavut).lue();
}

void Virhe(const QString &mika, int numero)
{
    throw ViiteaineistoVirhe(numero, QStringLiteral("camt.054-ilmoitus: %1").arg(mika));
}

} // namespace camt054
