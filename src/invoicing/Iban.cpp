#include "invoicing/Iban.h"

#include "invoicing/Mod97.h"

#include <QRegularExpression>
#include <optional>

namespace {

struct Maa {
    const char *koodi;
    int pituus;
};

// SEPA and its neighbours. Åland has its own code, though its accounts are written with FI.
constexpr Maa maat[] = {
    {"AD", 24}, {"AL", 28}, {"AT", 20}, {"AX", 18}, {"BE", 16}, {"BG", 22}, {"CH", 21}, {"CY", 28},
    {"CZ", 24}, {"DE", 22}, {"DK", 18}, {"EE", 20}, {"ES", 24}, {"FI", 18}, {"FO", 18}, {"FR", 27},
    {"GB", 22}, {"GI", 23}, {"GL", 18}, {"GR", 27}, {"HR", 21}, {"HU", 28}, {"IE", 22}, {"IS", 26},
    {"IT", 27}, {"LI", 21}, {"LT", 20}, {"LU", 20}, {"LV", 21}, {"MC", 27}, {"MD", 24}, {"ME", 22},
    {"MK", 19}, {"MT", 31}, {"NL", 18}, {"NO", 15}, {"PL", 28}, {"PT", 25}, {"RO", 24}, {"RS", 22},
    {"SE", 24}, {"SI", 19}, {"SK", 24}, {"SM", 27}, {"VA", 22},
};

struct Pankkikoodi {
    const char *alku;
    const char *nimi;
    const char *bic;
};

// Longer codes first: the first match wins.
constexpr Pankkikoodi pankit[] = {
    {"405", "Aktia", "HELSFIHH"},
    {"497", "Aktia", "HELSFIHH"},
    {"799", "Holvi", "HOLVFIHH"},
    {"31", "Handelsbanken", "HANDFIHH"},
    {"33", "SEB", "ESSEFIHX"},
    {"34", "Danske Bank", "DABAFIHX"},
    {"36", "S-Pankki", "SBANFIHH"},
    {"37", "DNB", "DNBAFIHX"},
    {"39", "S-Pankki", "SBANFIHH"},
    {"47", "POP Pankit", "POPFFI22"},
    {"1", "Nordea", "NDEAFIHH"},
    {"2", "Nordea", "NDEAFIHH"},
    {"4", "Säästöpankit", "ITELFIHH"},
    {"5", "OP", "OKOYFIHH"},
    {"6", "Ålandsbanken", "AABAFI22"},
    {"8", "Danske Bank", "DABAFIHH"},
};

bool onNumero(QChar c) { return c >= u'0' && c <= u'9'; }
bool onIsoKirjain(QChar c) { return c >= u'A' && c <= u'Z'; }
bool onAsciiKirjainTaiNumero(QChar c) { return onNumero(c) || onIsoKirjain(c) || (c >= u'a' && c <= u'z'); }
bool onVali(QChar c) { return c == u' ' || c == u'\t' || c == QChar(0x00A0); }

bool vainNumeroita(QStringView s)
{
    for (const QChar c : s)
        if (!onNumero(c))
            return false;
    return !s.isEmpty();
}

// The Luhn check of a Finnish account number, its check digit last.
bool luhnKunnossa(QStringView numerot)
{
    int summa = 0;
    for (qsizetype i = 0; i < numerot.size(); ++i) {
        int d = numerot[numerot.size() - 1 - i].unicode() - u'0';
        if (i % 2 == 1) {
            d *= 2;
            if (d > 9)
                d -= 9;
        }
        summa += d;
    }
    return summa % 10 == 0;
}

QString ibanTarkisteella(const QString &maa, const QString &bban)
{
    const int tarkiste = 98 - Mod97(QString(bban + maa + QLatin1String("00")));
    return maa + QStringLiteral("%1").arg(tarkiste, 2, 10, QLatin1Char('0')) + bban;
}

struct Osuma {
    qsizetype alku = 0;
    qsizetype loppu = 0; // one past the last character
    QString arvo;
};

// An IBAN starting at kohta: the country's number of letters and digits, blanks allowed between
// them, and no letter or digit right before or after.
std::optional<Osuma> ibanKohdasta(const QString &t, qsizetype kohta)
{
    if (kohta > 0 && onAsciiKirjainTaiNumero(t[kohta - 1]))
        return std::nullopt;
    const int pituus = IbanPituus(t.mid(kohta, 2).toUpper());
    if (pituus == 0)
        return std::nullopt;
    QString kone;
    qsizetype j = kohta;
    while (j < t.size() && kone.size() < pituus) {
        const QChar c = t[j];
        if (onAsciiKirjainTaiNumero(c)) {
            if ((kone.size() == 2 || kone.size() == 3) && !onNumero(c))
                return std::nullopt;
            kone += c.toUpper();
        } else if (!onVali(c) || kone.size() < 2) {
            break;
        }
        ++j;
    }
    if (kone.size() != pituus || (j < t.size() && onAsciiKirjainTaiNumero(t[j])))
        return std::nullopt;
    return Osuma{kohta, j, kone};
}

// Something that starts as an IBAN but has the wrong length: the country and check digits, then
// groups of letters and digits separated by blanks as long as each holds a digit. Only for the
// message that tells the user what is wrong with it.
std::optional<Osuma> ibaninAlku(const QString &t)
{
    static const QRegularExpression alku(QStringLiteral("(?<![A-Za-z0-9])[A-Za-z]{2}[0-9]{2}[A-Za-z0-9]*(?:[ \\t]+[A-Za-z]*[0-9][A-Za-z0-9]*)*"));
    for (auto it = alku.globalMatch(t); it.hasNext();) {
        const auto m = it.next();
        if (IbanPituus(m.captured().left(2).toUpper()) != 0)
            return Osuma{m.capturedStart(), m.capturedEnd(), IbanKoneelle(m.captured())};
    }
    return std::nullopt;
}

std::optional<Osuma> bicTekstista(const QString &t, const Osuma &tili)
{
    static const QRegularExpression bic(QStringLiteral("(?<![A-Za-z0-9])[A-Z]{6}[A-Z0-9]{2}(?:[A-Z0-9]{3})?(?![A-Za-z0-9])"));
    for (auto it = bic.globalMatch(t); it.hasNext();) {
        const auto m = it.next();
        const bool paallekkain = m.capturedStart() < tili.loppu && m.capturedEnd() > tili.alku;
        if (!paallekkain && BicOnKelvollinen(m.captured()))
            return Osuma{m.capturedStart(), m.capturedEnd(), m.captured()};
    }
    return std::nullopt;
}

// What is left of the text once the account and the BIC are taken out: the bank's name.
QString loputTekstista(QString t, const Osuma &tili, const std::optional<Osuma> &bic)
{
    const Osuma *ensin = &tili;
    const Osuma *sitten = bic ? &*bic : nullptr;
    if (sitten && sitten->alku > ensin->alku)
        std::swap(ensin, sitten);
    t.remove(ensin->alku, ensin->loppu - ensin->alku);
    if (sitten)
        t.remove(sitten->alku, sitten->loppu - sitten->alku);
    static const QRegularExpression nimiot(QStringLiteral("\\b(?:IBAN|BIC|SWIFT)\\b:?"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tyhjatSulut(QStringLiteral("\\(\\s*\\)"));
    t.remove(nimiot).remove(tyhjatSulut);
    t = t.simplified();
    static const QString reunat = QStringLiteral(" ,;:-/");
    while (!t.isEmpty() && reunat.contains(t.front()))
        t.remove(0, 1);
    while (!t.isEmpty() && reunat.contains(t.back()))
        t.chop(1);
    return t;
}

std::optional<Osuma> vanhaTilinumero(const QString &t)
{
    static const QRegularExpression vanha(QStringLiteral("(?<![0-9])[0-9]{6}[ \\t]*-[ \\t]*[0-9]{2,8}(?![0-9])"));
    const auto m = vanha.match(t);
    if (!m.hasMatch())
        return std::nullopt;
    return Osuma{m.capturedStart(), m.capturedEnd(), m.captured()};
}

} // namespace

int IbanPituus(const QString &maakoodi)
{
    for (const Maa &m : maat)
        if (maakoodi == QLatin1String(m.koodi))
            return m.pituus;
    return 0;
}

QString IbanKoneelle(const QString &iban) { return IlmanValejaIsoin(iban); }

QString IbanTulosteeseen(const QString &iban)
{
    const QString kone = IbanKoneelle(iban);
    QString tulos;
    for (qsizetype i = 0; i < kone.size(); ++i) {
        if (i > 0 && i % 4 == 0)
            tulos += QLatin1Char(' ');
        tulos += kone[i];
    }
    return tulos;
}

QString IbanVirhe(const QString &iban)
{
    const QString kone = IbanKoneelle(iban);
    if (kone.isEmpty())
        return QStringLiteral("Tilinumero puuttuu.");
    const QString tuloste = IbanTulosteeseen(kone);
    for (const QChar c : kone)
        if (!onNumero(c) && !onIsoKirjain(c))
            return QStringLiteral("Tilinumerossa %1 on merkkejä, joita IBAN-tilinumerossa ei voi olla.").arg(tuloste);
    const QString maa = kone.left(2);
    const int pituus = IbanPituus(maa);
    if (pituus == 0 || !onIsoKirjain(kone[0]) || !onIsoKirjain(kone[1]))
        return QStringLiteral("Tilinumero %1 ei ala tunnetulla IBAN-maatunnuksella.").arg(tuloste);
    if (kone.size() != pituus)
        return QStringLiteral("Tilinumerossa %1 on %2 merkkiä; maatunnuksella %3 niitä pitää olla %4.")
            .arg(tuloste).arg(kone.size()).arg(maa).arg(pituus);
    const bool suomalainen = maa == QLatin1String("FI") || maa == QLatin1String("AX");
    if (!vainNumeroita(QStringView(kone).mid(2, 2)) || (suomalainen && !vainNumeroita(QStringView(kone).mid(4))))
        return QStringLiteral("Tilinumero %1 ei ole IBAN-muotoinen.").arg(tuloste);
    if (Mod97(QString(kone.mid(4) + kone.left(4))) != 1 || (suomalainen && !luhnKunnossa(QStringView(kone).mid(4))))
        return QStringLiteral("Tilinumeron %1 tarkiste ei täsmää.").arg(tuloste);
    return {};
}

bool IbanOnKelvollinen(const QString &iban) { return IbanVirhe(iban).isEmpty(); }

QString IbanVanhastaTilinumerosta(const QString &tilinumero)
{
    static const QRegularExpression muoto(QStringLiteral("^\\s*([0-9]{6})\\s*-\\s*([0-9]{2,8})\\s*$"));
    const auto m = muoto.match(tilinumero);
    if (!m.hasMatch())
        return {};
    const QString pankki = m.captured(1);
    QString loput = m.captured(2);
    QString bban = pankki;
    // Savings and co-operative banks keep the first digit after the dash next to the bank part.
    if (pankki[0] == u'4' || pankki[0] == u'5') {
        bban += loput[0];
        loput.remove(0, 1);
    }
    bban += QString(14 - bban.size() - loput.size(), u'0') + loput;
    if (!luhnKunnossa(bban))
        return {};
    return ibanTarkisteella(QStringLiteral("FI"), bban);
}

SuomalainenPankki SuomalainenPankkiIbanista(const QString &iban)
{
    const QString kone = IbanKoneelle(iban);
    if (!kone.startsWith(QLatin1String("FI")) || kone.size() != 18)
        return {};
    const QStringView bban = QStringView(kone).mid(4);
    for (const Pankkikoodi &p : pankit)
        if (bban.startsWith(QLatin1String(p.alku)))
            return {QString::fromUtf8(p.nimi), QString::fromLatin1(p.bic)};
    return {};
}

bool BicOnKelvollinen(const QString &bic)
{
    if (bic.size() != 8 && bic.size() != 11)
        return false;
    for (qsizetype i = 0; i < bic.size(); ++i) {
        const QChar c = bic[i];
        if (i < 6 ? !onIsoKirjain(c) : !(onIsoKirjain(c) || onNumero(c)))
            return false;
    }
    return IbanPituus(bic.mid(4, 2)) != 0;
}

PankkitiliTulos PankkitiliTekstista(const QString &teksti)
{
    PankkitiliTulos tulos;
    if (teksti.trimmed().isEmpty()) {
        tulos.virhe = QStringLiteral("Tilinumero puuttuu.");
        return tulos;
    }

    std::optional<Osuma> tili;
    QString ensimmainenVirhe;
    for (qsizetype i = 0; i + 1 < teksti.size() && !tili; ++i) {
        const auto ehdokas = ibanKohdasta(teksti, i);
        if (!ehdokas)
            continue;
        const QString virhe = IbanVirhe(ehdokas->arvo);
        if (virhe.isEmpty())
            tili = ehdokas;
        else if (ensimmainenVirhe.isEmpty())
            ensimmainenVirhe = virhe;
    }
    if (!tili && ensimmainenVirhe.isEmpty()) {
        if (const auto vanha = vanhaTilinumero(teksti)) {
            const QString iban = IbanVanhastaTilinumerosta(vanha->arvo);
            if (iban.isEmpty())
                ensimmainenVirhe = QStringLiteral("Tilinumeron %1 tarkiste ei täsmää.").arg(vanha->arvo.simplified());
            else
                tili = Osuma{vanha->alku, vanha->loppu, iban};
        } else if (const auto alku = ibaninAlku(teksti)) {
            ensimmainenVirhe = IbanVirhe(alku->arvo);
        }
    }
    if (!tili) {
        tulos.virhe = !ensimmainenVirhe.isEmpty()
            ? ensimmainenVirhe
            : QStringLiteral("Tekstissä \"%1\" ei ole tilinumeroa.").arg(teksti.simplified());
        return tulos;
    }

    const auto bic = bicTekstista(teksti, *tili);
    const SuomalainenPankki pankki = SuomalainenPankkiIbanista(tili->arvo);
    tulos.tili.iban = tili->arvo;
    tulos.tili.bic = bic ? bic->arvo : pankki.bic;
    tulos.tili.pankki = loputTekstista(teksti, *tili, bic);
    if (tulos.tili.pankki.isEmpty())
        tulos.tili.pankki = pankki.nimi;
    return tulos;
}
