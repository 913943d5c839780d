#include "email/Sahkopohja.h"

#include <QStringDecoder>

namespace {

const QString CRLF = QStringLiteral("\r\n");

// Windows-1252 where it differs from Latin-1; the five unassigned bytes keep their code.
constexpr char16_t Cp1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString windows1252(const QByteArray &tavut)
{
    QString s(tavut.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < tavut.size(); ++i) {
        const auto b = uchar(tavut[i]);
        s[i] = QChar(b >= 0x80 && b < 0xA0 ? Cp1252[b - 0x80] : char16_t(b));
    }
    return s;
}

Tunnistearvot laskuttajanArvot(const Laskuttaja &l)
{
    return {{QStringLiteral("LASKUTTAJANNIMI"), l.nimi},         {QStringLiteral("LASKUTTAJANOSOITE"), l.osoite},
            {QStringLiteral("LASKUTTAJANPOSTINRO"), l.postinro}, {QStringLiteral("LASKUTTAJANPOSTITOIMI"), l.postitoimi},
            {QStringLiteral("LASKUTTAJANPUH"), l.puh},           {QStringLiteral("LASKUTTAJANFAX"), l.fax},
            {QStringLiteral("LASKUTTAJANEMAIL"), l.email},       {QStringLiteral("LASKUTTAJANINTERNET"), l.internet},
            {QStringLiteral("LASKUTTAJANYTUNNUS"), l.ytunnus}};
}

Tunnistearvot maksajanArvot(const Maksaja &m)
{
    return {{QStringLiteral("MAKSAJANNIMI"), m.sukunimi + QLatin1Char(' ') + m.etunimi},
            {QStringLiteral("MAKSAJANOSOITE"), m.osoite},
            {QStringLiteral("MAKSAJANPOSTINRO"), m.postinro},
            {QStringLiteral("MAKSAJANPOSTITOIMI"), m.postitoimi}};
}

Tunnistearvot tilienArvot(const Tilit &t)
{
    return {{QStringLiteral("LASKUTTAJANTILI1"), t.tili1}, {QStringLiteral("LASKUTTAJANTILI2"), t.tili2}};
}

Tunnistearvot laskunArvot(const LaskunTiedot &l)
{
    return {{QStringLiteral("LASKUOTSAKE"), l.otsake},        {QStringLiteral("LOPPUSUMMA"), l.loppusumma},
            {QStringLiteral("LASKUPAIVA"), l.laskupaiva},     {QStringLiteral("ERAPAIVA"), l.erapaiva},
            {QStringLiteral("VIITENUMERO"), l.viitenumero},   {QStringLiteral("LASKUNUMERO"), l.laskunumero}};
}

Tunnistearvot lisatiedonArvot(const QString &lisatieto)
{
    return {{QStringLiteral("LISATIETOTEKSTI"), lisatieto}};
}

// Where the row block lies: the start tag, the pattern and one past the end tag.
struct Riviosa {
    qsizetype alku = -1, kuvio = -1, kuvionLoppu = -1, loppu = -1;
};

Riviosa etsiRiviosa(const QString &teksti)
{
    static const QString avaus = QStringLiteral("<LASKURIVIT>"), sulku = QStringLiteral("</LASKURIVIT>");
    const qsizetype alku = teksti.indexOf(avaus, 0, Qt::CaseInsensitive);
    const qsizetype loppu = teksti.indexOf(sulku, 0, Qt::CaseInsensitive);
    if (alku < 0 || loppu < alku)
        return {};
    return {alku, alku + avaus.size(), loppu, loppu + sulku.size()};
}

// The pattern's tokens other than the row's own come in `muut`, merged in the same pass.
QString rivit(const QString &kuvio, const QList<cInvoiceRow> &rivit, const Tunnistearvot &muut)
{
    const int leveys = TunnisteenLeveys(kuvio, QStringLiteral("RIVIAIHE"));
    Tunnistearvot arvot{{QStringLiteral("RIVIPVM"), {}}, {QStringLiteral("RIVIAIHE"), {}}, {QStringLiteral("SUMMA"), {}}};
    arvot += muut;
    QString tulos;
    const auto pala = [&](const QString &paiva, const QString &teksti, const QString &summa) {
        arvot[0].second = paiva;
        arvot[1].second = teksti;
        arvot[2].second = summa;
        tulos += KorvaaTunnisteet(kuvio, arvot);
        tulos += CRLF;
    };
    for (const cInvoiceRow &r : rivit) {
        if (leveys <= 0) {
            pala(r.paiva, r.teksti, r.summa);
            continue;
        }
        const QStringList rivitetty = RivitaTeksti(r.teksti, leveys).split(CRLF);
        for (qsizetype i = 0; i < rivitetty.size(); ++i)
            pala(i == 0 ? r.paiva : QString(), rivitetty[i], i == 0 ? r.summa : QString());
    }
    return tulos;
}

} // namespace

QString PohjaTekstiksi(const QByteArray &tavut)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString teksti = utf8(tavut);
    if (!utf8.hasError())
        return teksti;
    return windows1252(tavut);
}

QString RivitaTeksti(const QString &teksti, int leveys)
{
    QStringList kappaleet = teksti.trimmed().split(QLatin1Char('\n'));
    QStringList rivit;
    for (QString &kappale : kappaleet) {
        if (kappale.endsWith(QLatin1Char('\r')))
            kappale.chop(1);
        if (leveys <= 0) {
            rivit << kappale;
            continue;
        }
        QString rivi;
        for (const QString &sana : kappale.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            if (rivi.isEmpty()) {
                rivi = sana;
            } else if (rivi.size() + 1 + sana.size() <= leveys) {
                rivi += QLatin1Char(' ') + sana;
            } else {
                rivit << rivi;
                rivi = sana;
            }
        }
        rivit << rivi;
    }
    return rivit.join(CRLF);
}

QString KorvaaLaskuttaja(const QString &teksti, const Laskuttaja &l) { return KorvaaTunnisteet(teksti, laskuttajanArvot(l)); }
QString KorvaaMaksaja(const QString &teksti, const Maksaja &m) { return KorvaaTunnisteet(teksti, maksajanArvot(m)); }
QString KorvaaTilit(const QString &teksti, const Tilit &t) { return KorvaaTunnisteet(teksti, tilienArvot(t)); }
QString KorvaaLasku(const QString &teksti, const LaskunTiedot &l) { return KorvaaTunnisteet(teksti, laskunArvot(l)); }
QString KorvaaLisatieto(const QString &teksti, const QString &lisatieto)
{
    return KorvaaTunnisteet(teksti, lisatiedonArvot(lisatieto));
}

QString KorvaaLaskurivit(const QString &teksti, const QList<cInvoiceRow> &rivit_)
{
    const Riviosa o = etsiRiviosa(teksti);
    if (o.alku < 0)
        return teksti;
    return teksti.left(o.alku) + rivit(teksti.mid(o.kuvio, o.kuvionLoppu - o.kuvio), rivit_, {}) + teksti.mid(o.loppu);
}

QString YhdistaLasku(const QString &pohja, const Laskuttaja &laskuttaja, const Sahkopostilasku &lasku)
{
    Tunnistearvot arvot = laskuttajanArvot(laskuttaja);
    arvot += maksajanArvot(lasku.maksaja);
    arvot += tilienArvot(lasku.tilit);
    arvot += laskunArvot(lasku.lasku);
    arvot += lisatiedonArvot(lasku.lisatieto);
    const Riviosa o = etsiRiviosa(pohja);
    if (o.alku < 0)
        return KorvaaTunnisteet(pohja, arvot);
    return KorvaaTunnisteet(QStringView(pohja).left(o.alku), arvot)
        + rivit(pohja.mid(o.kuvio, o.kuvionLoppu - o.kuvio), lasku.rivit, arvot)
        + KorvaaTunnisteet(QStringView(pohja).mid(o.loppu), arvot);
}
