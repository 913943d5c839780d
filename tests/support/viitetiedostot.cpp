#include "viitetiedostot.h"

#include "invoicing/Maksuviite.h"

namespace viitetiedostot {
namespace {

QString Vvkkpp(const QString &iso)
{
    return iso.mid(2, 2) + iso.mid(5, 2) + iso.mid(8, 2);
}

QString Euroina(qint64 sentit)
{
    return QStringLiteral("%1.%2").arg(sentit / 100).arg(sentit % 100, 2, 10, QLatin1Char('0'));
}

QString Nollilla(qint64 n, int leveys)
{
    return QStringLiteral("%1").arg(n, leveys, 10, QLatin1Char('0'));
}

QString TxDtls(const Maksu &m, Muoto muoto)
{
    const QString summa = muoto == Muoto::Versio08
                              ? QStringLiteral("<Amt Ccy=\"EUR\">%1</Amt>").arg(Euroina(m.sentit))
                              : QStringLiteral("<AmtDtls><TxAmt><Amt Ccy=\"EUR\">%1</Amt></TxAmt></AmtDtls>")
                                    .arg(Euroina(m.sentit));
    const QString nimi = muoto == Muoto::Versio08 ? QStringLiteral("<Pty><Nm>%1</Nm></Pty>").arg(m.nimi)
                                                  : QStringLiteral("<Nm>%1</Nm>").arg(m.nimi);
    return QStringLiteral("<TxDtls><Refs><AcctSvcrRef>%1</AcctSvcrRef></Refs>%2"
                          "<RltdPties><Dbtr>%3</Dbtr></RltdPties>"
                          "<RmtInf><Strd><CdtrRefInf><Tp><CdOrPrtry><Cd>SCOR</Cd></CdOrPrtry></Tp>"
                          "<Ref>%4</Ref></CdtrRefInf></Strd></RmtInf>"
                          "<RltdDts><AccptncDtTm>%5T00:00:00</AccptncDtTm></RltdDts></TxDtls>\n")
        .arg(m.arkisto, summa, nimi, m.rf ? RfViiteKansallisesta(m.viite) : m.viite, m.maksupaiva);
}

QString Ntry(const QList<Maksu> &maksut, Muoto muoto, bool oikaisu)
{
    qint64 summa = 0;
    QString erittely;
    for (const Maksu &m : maksut) {
        summa += m.sentit;
        erittely += TxDtls(m, muoto);
    }
    const QString tila = muoto == Muoto::Versio08 ? QStringLiteral("<Sts><Cd>BOOK</Cd></Sts>")
                                                  : QStringLiteral("<Sts>BOOK</Sts>");
    const QString era = maksut.size() > 1 ? QStringLiteral("<Btch><NbOfTxs>%1</NbOfTxs><TtlAmt Ccy=\"EUR\">%2</TtlAmt>"
                                                           "<CdtDbtInd>CRDT</CdtDbtInd></Btch>")
                                                .arg(maksut.size())
                                                .arg(Euroina(summa))
                                          : QString();
    return QStringLiteral("<Ntry><Amt Ccy=\"EUR\">%1</Amt><CdtDbtInd>%2</CdtDbtInd>%3%4"
                          "<BookgDt><Dt>%5</Dt></BookgDt><ValDt><Dt>%5</Dt></ValDt>"
                          "<AcctSvcrRef>%6</AcctSvcrRef>"
                          "<BkTxCd><Prtry><Cd>705 VIITESIIRROT</Cd><Issr>FFFS</Issr></Prtry></BkTxCd>"
                          "<NtryDtls>%7%8</NtryDtls></Ntry>\n")
        .arg(Euroina(summa), oikaisu ? QStringLiteral("DBIT") : QStringLiteral("CRDT"),
             oikaisu ? QStringLiteral("<RvslInd>true</RvslInd>") : QString(), tila, maksut.first().kirjauspaiva,
             maksut.first().arkisto + QStringLiteral("E"), era, erittely);
}

} // namespace

QByteArray Ktl(const QList<Maksu> &maksut, bool loppusummat)
{
    QString t = QStringLiteral("02501150704471234567891\r\n");
    qint64 kpl = 0, summa = 0, okpl = 0, osumma = 0;
    for (const Maksu &m : maksut) {
        (m.oikaisu ? okpl : kpl) += 1;
        (m.oikaisu ? osumma : summa) += m.sentit;
        t += QStringLiteral("315903000000776") + Vvkkpp(m.kirjauspaiva) + Vvkkpp(m.maksupaiva)
             + m.arkisto.leftJustified(16, u' ', true) + m.viite.rightJustified(20, u'0')
             + m.nimi.leftJustified(12, u' ', true) + QStringLiteral("1A") + Nollilla(m.sentit, 10)
             + (m.oikaisu ? QStringLiteral("1") : QStringLiteral("0")) + QStringLiteral("A \r\n");
    }
    if (loppusummat)
        t += QStringLiteral("9") + Nollilla(kpl, 6) + Nollilla(summa, 11) + Nollilla(okpl, 6) + Nollilla(osumma, 11)
             + Nollilla(0, 6) + Nollilla(0, 11) + QStringLiteral("\r\n");
    return t.toLatin1();
}

QByteArray Camt(const QList<Maksu> &maksut, Muoto muoto, const QString &lisa)
{
    QList<Maksu> maksuina, oikaisuina;
    for (const Maksu &m : maksut)
        (m.oikaisu ? oikaisuina : maksuina).append(m);
    QString kirjaukset;
    if (muoto == Muoto::Eraittain && !maksuina.isEmpty())
        kirjaukset += Ntry(maksuina, muoto, false);
    else
        for (const Maksu &m : maksuina)
            kirjaukset += Ntry({m}, muoto, false);
    for (const Maksu &m : oikaisuina)
        kirjaukset += Ntry({m}, muoto, true);
    const QString versio = muoto == Muoto::Versio08 ? QStringLiteral("08") : QStringLiteral("02");
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.054.001.%1\">"
                          "<BkToCstmrDbtCdtNtfctn><GrpHdr><MsgId>T1</MsgId>"
                          "<CreDtTm>2025-01-15T07:04:01</CreDtTm></GrpHdr>\n"
                          "<Ntfctn><Id>T1-1</Id><CreDtTm>2025-01-15T07:04:01</CreDtTm>"
                          "<Acct><Id><IBAN>FI3715903000000776</IBAN></Id><Ccy>EUR</Ccy></Acct>\n"
                          "%2%3</Ntfctn></BkToCstmrDbtCdtNtfctn></Document>\n")
        .arg(versio, kirjaukset, lisa)
        .toUtf8();
}

} // namespace viitetiedostot
