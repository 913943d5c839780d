#include "reports/Lisafunktiot.h"

#include "invoicing/EpcQr.h"
#include "invoicing/Iban.h"
#include "invoicing/Pankkiviivakoodi.h"

#include <cmath>

namespace {

QString teksti(const Arvo &a) { return ArvoTekstina(a); }

std::optional<qint64> kokonaisluku(const Arvo &a)
{
    if (std::holds_alternative<QString>(a) || std::holds_alternative<QDate>(a))
        return std::nullopt;
    const auto x = ArvoLukuna(a);
    if (!x || !std::isfinite(*x) || std::fabs(*x) > 1e9)
        return std::nullopt;
    return qint64(std::llround(*x));
}

// An amount as the formula gives it: money, a number or a text "25,00"; nothing when empty.
std::optional<Currency> summa(const Arvo &a)
{
    if (auto c = std::get_if<Currency>(&a))
        return *c;
    if (auto t = std::get_if<QString>(&a))
        return t->trimmed().isEmpty() ? std::nullopt : Currency::parse(t->trimmed());
    if (std::holds_alternative<QDate>(a) || std::holds_alternative<bool>(a))
        return std::nullopt;
    if (auto x = ArvoLukuna(a))
        return Currency::fromDouble(*x);
    return std::nullopt;
}

QDate paiva(const Arvo &a)
{
    if (auto d = std::get_if<QDate>(&a))
        return *d;
    return {};
}

// The account in the settings' free text; nothing when no valid account is there.
std::optional<Pankkitili> tili(const Arvo &a)
{
    const QString t = teksti(a).trimmed();
    if (t.isEmpty())
        return std::nullopt;
    const PankkitiliTulos r = PankkitiliTekstista(t);
    if (!r.onnistui())
        return std::nullopt;
    return r.tili;
}

Arvo viivakoodi(const std::vector<Arvo> &a)
{
    const auto t = tili(a[0]);
    if (!t)
        return QString();
    // No amount is the payer's to fill in: the barcode carries zeros then.
    const Currency s = summa(a[1]).value_or(Currency());
    return Pankkiviivakoodi(t->iban, s, teksti(a[2]).trimmed(), paiva(a[3])).numerot;
}

Arvo epcQr(const std::vector<Arvo> &a)
{
    const auto t = tili(a[1]);
    if (!t)
        return QString();
    EpcQrTiedot q;
    q.saaja = teksti(a[0]).trimmed();
    q.iban = t->iban;
    q.bic = t->bic;
    q.summa = summa(a[2]);
    q.viite = teksti(a[3]).trimmed();
    q.erapaiva = paiva(a[4]);
    if (a.size() > 5)
        q.viesti = teksti(a[5]).trimmed();
    return QString::fromUtf8(EpcQrSisalto(q).sisalto);
}

Arvo tilinOsa(const QString &nimi, const Arvo &a)
{
    const auto t = tili(a);
    if (nimi == QLatin1String("tiliiban"))
        return t ? IbanTulosteeseen(t->iban) : teksti(a).trimmed(); // a faulty account prints as typed
    if (!t)
        return QString();
    return nimi == QLatin1String("tilibic") ? t->bic : t->pankki;
}

Arvo mid(const std::vector<Arvo> &a)
{
    const QString t = teksti(a[0]);
    const qint64 alku = kokonaisluku(a[1]).value_or(1);
    if (alku < 1 || alku > t.size())
        return QString();
    if (a.size() < 3)
        return t.mid(alku - 1);
    const qint64 pituus = kokonaisluku(a[2]).value_or(0);
    return pituus <= 0 ? QString() : t.mid(alku - 1, pituus);
}

Arvo tayta(const std::vector<Arvo> &a, bool vasemmalle)
{
    const QString t = teksti(a[0]);
    const qint64 leveys = qMin<qint64>(kokonaisluku(a[1]).value_or(0), 1000);
    const QString merkki = a.size() > 2 ? teksti(a[2]) : QStringLiteral(" ");
    if (leveys <= t.size() || merkki.isEmpty())
        return t;
    const QString tayte = QString(leveys - t.size(), merkki.front());
    return vasemmalle ? tayte + t : t + tayte;
}

Arvo korvaa(const std::vector<Arvo> &a)
{
    const QString mita = teksti(a[1]);
    if (mita.isEmpty())
        return teksti(a[0]);
    return teksti(a[0]).replace(mita, teksti(a[2]));
}

Arvo merkki(const Arvo &a)
{
    const auto n = kokonaisluku(a);
    if (!n || *n < 1 || *n > 0x10FFFF || (*n >= 0xD800 && *n <= 0xDFFF))
        return QString();
    const char32_t c = char32_t(*n);
    return QString::fromUcs4(&c, 1);
}

} // namespace

const QHash<QString, Funktionargumentit> &Lisafunktiot()
{
    static const QHash<QString, Funktionargumentit> f = {
        {QStringLiteral("pankkiviivakoodi"), {4, 4}}, {QStringLiteral("epcqr"), {5, 6}},
        {QStringLiteral("tiliiban"), {1, 1}},         {QStringLiteral("tilibic"), {1, 1}},
        {QStringLiteral("tilipankki"), {1, 1}},       {QStringLiteral("mid"), {2, 3}},
        {QStringLiteral("replace"), {3, 3}},          {QStringLiteral("padleft"), {2, 3}},
        {QStringLiteral("padright"), {2, 3}},         {QStringLiteral("chr"), {1, 1}}};
    return f;
}

std::optional<Arvo> LaskeLisafunktio(const QString &nimi, const std::vector<Arvo> &a)
{
    if (!Lisafunktiot().contains(nimi))
        return std::nullopt;
    if (nimi == QLatin1String("pankkiviivakoodi"))
        return viivakoodi(a);
    if (nimi == QLatin1String("epcqr"))
        return epcQr(a);
    if (nimi.startsWith(QLatin1String("tili")))
        return tilinOsa(nimi, a[0]);
    if (nimi == QLatin1String("mid"))
        return mid(a);
    if (nimi == QLatin1String("replace"))
        return korvaa(a);
    if (nimi == QLatin1String("padleft") || nimi == QLatin1String("padright"))
        return tayta(a, nimi == QLatin1String("padleft"));
    return merkki(a[0]);
}
