#include "reports/Muotoilu.h"

#include "invoicing/Iban.h"
#include "invoicing/Maksuviite.h"

#include <QLocale>
#include <cmath>

namespace {

const QLocale &suomi()
{
    static const QLocale l(QLocale::Finnish, QLocale::Finland);
    return l;
}

} // namespace

QString ArvoTekstina(const Arvo &a)
{
    struct {
        QString operator()(std::monostate) const { return {}; }
        QString operator()(bool b) const { return b ? QStringLiteral("Kyllä") : QStringLiteral("Ei"); }
        QString operator()(qint64 n) const { return QString::number(n); }
        QString operator()(double d) const
        {
            if (std::isfinite(d) && d == std::floor(d) && std::fabs(d) < 1e15)
                return QString::number(qint64(d));
            return suomi().toString(d, 'g', 12).remove(QChar(0x00A0));
        }
        QString operator()(const Currency &c) const { return c.toString(2); }
        QString operator()(const QDate &d) const { return d.isValid() ? d.toString(QStringLiteral("d.M.yyyy")) : QString(); }
        QString operator()(const QString &s) const { return s; }
    } tekstiksi;
    return std::visit(tekstiksi, a);
}

std::optional<double> ArvoLukuna(const Arvo &a)
{
    if (auto b = std::get_if<bool>(&a))
        return *b ? 1.0 : 0.0;
    if (auto n = std::get_if<qint64>(&a))
        return double(*n);
    if (auto d = std::get_if<double>(&a))
        return *d;
    if (auto c = std::get_if<Currency>(&a))
        return c->toDouble();
    return std::nullopt;
}

std::optional<Muoto> MuotoNimesta(const QString &nimi)
{
    static const QHash<QString, Muoto> nimet = {
        {QStringLiteral("oletus"), Muoto::Oletus}, {QStringLiteral("raha"), Muoto::Raha},
        {QStringLiteral("euro"), Muoto::Euro},     {QStringLiteral("pvm"), Muoto::Pvm},
        {QStringLiteral("viite"), Muoto::Viite},   {QStringLiteral("iban"), Muoto::Iban},
        {QStringLiteral("kokonaisluku"), Muoto::Kokonaisluku}};
    const auto it = nimet.constFind(nimi.trimmed().toLower());
    if (it == nimet.constEnd())
        return std::nullopt;
    return *it;
}

QString RahaTekstina(const Currency &c)
{
    return suomi().toString(double(c.roundedToCents().raw()) / Currency::Scale, 'f', 2);
}

QString Muotoile(const Arvo &arvo, Muoto muoto)
{
    if (onTyhja(arvo))
        return {};
    switch (muoto) {
    case Muoto::Oletus:
        break;
    case Muoto::Raha:
    case Muoto::Euro: {
        Currency c;
        if (auto r = std::get_if<Currency>(&arvo))
            c = *r;
        else if (auto l = ArvoLukuna(arvo))
            c = Currency::fromDouble(*l);
        else if (auto t = std::get_if<QString>(&arvo); t && Currency::parse(*t))
            c = *Currency::parse(*t);
        else
            break;
        return muoto == Muoto::Euro ? RahaTekstina(c) + QStringLiteral(" €") : RahaTekstina(c);
    }
    case Muoto::Pvm:
        break; // dates print as d.M.yyyy already; other values as they are
    case Muoto::Viite:
        return MaksuviiteTulosteeseen(ArvoTekstina(arvo));
    case Muoto::Iban:
        return IbanTulosteeseen(ArvoTekstina(arvo));
    case Muoto::Kokonaisluku:
        if (auto l = ArvoLukuna(arvo))
            return QString::number(qint64(std::llround(*l)));
        break;
    }
    return ArvoTekstina(arvo);
}
