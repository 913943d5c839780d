#include "payments/KtlLukija.h"

#include "payments/ViiteKentat.h"

#include <QDate>
#include <QStringDecoder>

namespace ktl {
namespace {

constexpr int Leveys = 90;

// The 7-bit national letters of the old bank files, as they stand in names.
QString KansallisetKirjaimet(QString nimi)
{
    static const QString seitsemanBittia = QStringLiteral("[\\]{|}");
    static const QString kirjaimet = QStringLiteral("ÄÖÅäöå");
    for (QChar &c : nimi) {
        const qsizetype i = seitsemanBittia.indexOf(c);
        if (i >= 0)
            c = kirjaimet.at(i);
    }
    return nimi;
}

// UTF-8 when the bytes are valid UTF-8, else ISO-8859-1: a fixed-width file counts characters,
// so the encoding must be right before the columns are cut.
QString Tekstiksi(const QByteArray &tavut)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString teksti = utf8.decode(tavut);
    if (!utf8.hasError())
        return teksti;
    return QString::fromLatin1(tavut);
}

QList<QStringView> Rivit(const QString &teksti)
{
    QList<QStringView> rivit;
    const QStringView t(teksti);
    qsizetype alku = 0;
    for (qsizetype i = 0; i < t.size(); ++i) {
        if (t[i] != u'\r' && t[i] != u'\n')
            continue;
        rivit.append(t.mid(alku, i - alku));
        if (t[i] == u'\r' && i + 1 < t.size() && t[i + 1] == u'\n')
            ++i;
        alku = i + 1;
    }
    if (alku < t.size())
        rivit.append(t.mid(alku));
    return rivit;
}

bool OnTyhja(QStringView s)
{
    for (QChar c : s)
        if (c != u' ')
            return false;
    return true;
}

bool OnNumerot(QStringView s)
{
    for (QChar c : s)
        if (c < u'0' || c > u'9')
            return false;
    return !s.isEmpty();
}

[[noreturn]] void Virhe(int rivi, const QString &mika)
{
    throw ViiteaineistoVirhe(ViiteaineistoVirhe::VaaraMuoto,
                             QStringLiteral("Viitesiirtoaineiston rivi %1: %2").arg(rivi).arg(mika));
}

// One record padded to 90 characters, with its line number for the messages.
class Tietue {
public:
    Tietue(QStringView rivi, int numero) : m_numero(numero)
    {
        if (rivi.size() > Leveys) {
            if (!OnTyhja(rivi.mid(Leveys)))
                Virhe(numero, QStringLiteral("rivillä on %1 merkkiä, tietueessa 90.").arg(rivi.size()));
            rivi = rivi.left(Leveys);
        }
        m_teksti = rivi.toString().leftJustified(Leveys, u' ');
    }

    int numero() const { return m_numero; }
    QChar tyyppi() const { return m_teksti.at(0); }

    // Positions are 1-based as the format's tables give them.
    QString kentta(int alku, int pituus) const { return m_teksti.mid(alku - 1, pituus); }

    QString numerot(int alku, int pituus, const QString &nimi) const
    {
        const QString k = kentta(alku, pituus);
        if (!OnNumerot(k))
            Virhe(m_numero, QStringLiteral("%1 \"%2\" ei ole numero.").arg(nimi, k));
        return k;
    }

    QString paiva(int alku, const QString &nimi) const
    {
        const QString k = kentta(alku, 6);
        if (!OnNumerot(k) || !QDate::fromString(QStringLiteral("20") + k, QStringLiteral("yyyyMMdd")).isValid())
            Virhe(m_numero, QStringLiteral("%1 \"%2\" ei ole päivämäärä (VVKKPP).").arg(nimi, k));
        return k;
    }

    // A reference right-aligned in its field; blanks before it are allowed, other text is not.
    QString viite(int alku, int pituus) const
    {
        const QString k = kentta(alku, pituus);
        const QString ilmanTyhjia = k.trimmed();
        if (!ilmanTyhjia.isEmpty() && !OnNumerot(ilmanTyhjia))
            Virhe(m_numero, QStringLiteral("viitenumero \"%1\" ei ole numero.").arg(k));
        return k;
    }

private:
    QString m_teksti;
    int m_numero;
};

ViiteEra Alkutietue(const Tietue &t)
{
    ViiteEra era;
    era.Tunnus = t.kentta(1, 1);
    era.Paivamaara = t.paiva(2, QStringLiteral("erän luontipäivä"));
    era.Aika = t.numerot(8, 4, QStringLiteral("erän luontiaika"));
    era.Pankkiryhma = t.kentta(12, 2);
    era.Laskuttaja = t.kentta(14, 9);
    era.Rahayksikko = t.kentta(23, 1);
    return era;
}

ViiteTapahtuma Maksutietue(const Tietue &t)
{
    ViiteTapahtuma m;
    m.Tunnus = t.kentta(1, 1);
    m.Tilinumero = t.kentta(2, 14);
    m.Kirjauspaiva = t.paiva(16, QStringLiteral("kirjauspäivä"));
    m.Maksupaiva = t.paiva(22, QStringLiteral("maksupäivä"));
    m.Arkistointitunnus = t.kentta(28, 16);
    m.Viitenumero = t.viite(44, 20);
    m.Nimi = KansallisetKirjaimet(t.kentta(64, 12));
    m.Rahayksikko = t.kentta(76, 1);
    m.NimenLahde = t.kentta(77, 1);
    m.Rahamaara = t.numerot(78, 10, QStringLiteral("rahamäärä"));
    m.Oikaisutunnus = t.kentta(88, 1);
    m.Valitystapa = t.kentta(89, 1);
    m.Palautekoodi = t.kentta(90, 1);
    return m;
}

// The totals of record 9, checked against the batch they close: a record 9 that disagrees means
// payments were lost or added on the way.
ViiteSummat Loppusummat(const Tietue &t, const ViiteEra &era)
{
    ViiteSummat s;
    s.TapahtumatKpl = t.numerot(2, 6, QStringLiteral("maksujen määrä"));
    s.TapahtumatSumma = t.numerot(8, 11, QStringLiteral("maksujen summa"));
    s.OikaisutKpl = t.numerot(19, 6, QStringLiteral("oikaisujen määrä"));
    s.OikaisutSumma = t.numerot(25, 11, QStringLiteral("oikaisujen summa"));
    // Some banks leave the failed direct debits blank; they are kept as they stand.
    s.EpaonnistuneetKpl = t.kentta(36, 6);
    s.EpaonnistuneetSumma = t.kentta(42, 11);
    if (!OnTyhja(s.EpaonnistuneetKpl))
        t.numerot(36, 6, QStringLiteral("epäonnistuneiden määrä"));
    if (!OnTyhja(s.EpaonnistuneetSumma))
        t.numerot(42, 11, QStringLiteral("epäonnistuneiden summa"));

    const ViiteSummat laskettu = viitekentat::LaskeSummat(era.Tapahtumat);
    auto vertaa = [&](const QString &kpl, const QString &summa, const QString &lasketutKpl,
                      const QString &laskettuSumma, const QString &mitka) {
        if (kpl.toLongLong() == lasketutKpl.toLongLong() && summa.toLongLong() == laskettuSumma.toLongLong())
            return;
        Virhe(t.numero(), QStringLiteral("erän loppusummissa on %1 %2 (%3), erässä %4 (%5).")
                              .arg(mitka)
                              .arg(kpl.toLongLong())
                              .arg(viitekentat::EuroinaViestiin(summa.toLongLong()))
                              .arg(lasketutKpl.toLongLong())
                              .arg(viitekentat::EuroinaViestiin(laskettuSumma.toLongLong())));
    };
    vertaa(s.TapahtumatKpl, s.TapahtumatSumma, laskettu.TapahtumatKpl, laskettu.TapahtumatSumma,
           QStringLiteral("maksuja"));
    vertaa(s.OikaisutKpl, s.OikaisutSumma, laskettu.OikaisutKpl, laskettu.OikaisutSumma,
           QStringLiteral("oikaisuja"));
    return s;
}

} // namespace

bool Tunnista(const QByteArray &tavut)
{
    QByteArrayView t(tavut);
    if (t.startsWith("\xEF\xBB\xBF"))
        t = t.sliced(3);
    for (char c : t) {
        if (c == '\r' || c == '\n' || c == ' ')
            continue;
        return c == '0' || c == '3' || c == '5' || c == '9';
    }
    return false;
}

QList<ViiteEra> Lue(const QByteArray &tavut)
{
    QList<ViiteEra> erat;
    bool eraAuki = false;
    auto suljeIlmanLoppusummia = [&] {
        if (!eraAuki)
            return;
        erat.back().Summat = viitekentat::LaskeSummat(erat.back().Tapahtumat);
        erat.back().SummatTiedostosta = false;
        eraAuki = false;
    };

    const QString teksti = Tekstiksi(tavut);
    const QList<QStringView> rivit = Rivit(teksti);
    for (qsizetype i = 0; i < rivit.size(); ++i) {
        const int numero = int(i + 1);
        if (OnTyhja(rivit[i]))
            continue;
        const Tietue t(rivit[i], numero);
        switch (t.tyyppi().unicode()) {
        case u'0':
            suljeIlmanLoppusummia();
            erat.append(Alkutietue(t));
            eraAuki = true;
            break;
        case u'3':
        case u'5':
            if (!eraAuki)
                Virhe(numero, QStringLiteral("maksutietue ennen erän alkutietuetta (tietue 0)."));
            erat.back().Tapahtumat.append(Maksutietue(t));
            break;
        case u'9':
            if (!eraAuki)
                Virhe(numero, QStringLiteral("erän loppusummat (tietue 9) ilman erän alkutietuetta."));
            erat.back().Summat = Loppusummat(t, erat.back());
            eraAuki = false;
            break;
        default:
            Virhe(numero, QStringLiteral("tuntematon tietuetyyppi \"%1\".").arg(t.tyyppi()));
        }
    }
    suljeIlmanLoppusummia();
    return erat;
}

} // namespace ktl
