#include "platform/currency.h"

#include <QLocale>
#include <QRegularExpression>
#include <cmath>

static qint64 roundHalfEven(long double v)
{
    const long double fl = std::floor(v);
    const long double diff = v - fl;
    if (diff > 0.5L)
        return qint64(fl) + 1;
    if (diff < 0.5L)
        return qint64(fl);
    const qint64 f = qint64(fl);
    return (f % 2 == 0) ? f : f + 1;
}

Currency Currency::fromDouble(double value)
{
    // Through the decimal text of the double, so that 0.1 * Scale is 1000 and not 999.99...
    const long double scaled = std::stold(QString::number(value, 'f', 8).toStdString()) * Scale;
    return fromRaw(roundHalfEven(scaled));
}

std::optional<Currency> Currency::parse(const QString &input)
{
    QString t = input.trimmed();
    t.remove(QChar(0x20AC)); // €
    t.remove(QChar(0x00A0));
    t.remove(QChar(0x202F));
    t.remove(QLatin1Char(' '));
    if (t.isEmpty())
        return std::nullopt;
    bool negative = false;
    if (t.startsWith(QLatin1Char('-')) || t.startsWith(QChar(0x2212))) {
        negative = true;
        t = t.mid(1);
    } else if (t.startsWith(QLatin1Char('+'))) {
        t = t.mid(1);
    }
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    const int dot = t.indexOf(QLatin1Char('.'));
    if (dot != t.lastIndexOf(QLatin1Char('.')))
        return std::nullopt;
    QString whole = dot < 0 ? t : t.left(dot);
    QString frac = dot < 0 ? QString() : t.mid(dot + 1);
    if (whole.isEmpty() && frac.isEmpty())
        return std::nullopt;
    for (QChar c : whole + frac)
        if (!c.isDigit() || c.unicode() > '9')
            return std::nullopt;
    if (whole.size() > 14)
        return std::nullopt;
    qint64 raw = whole.isEmpty() ? 0 : whole.toLongLong() * Scale;
    // Beyond four decimals the amount is rounded half to even, as the engine's conversion does.
    QString f4 = frac.left(4).leftJustified(4, QLatin1Char('0'));
    raw += f4.toLongLong();
    if (frac.size() > 4) {
        const QString rest = frac.mid(4);
        const int first = rest[0].digitValue();
        const bool beyondHalf = rest.mid(1).contains(QRegularExpression(QStringLiteral("[1-9]")));
        if (first > 5 || (first == 5 && (beyondHalf || (raw % 2) != 0)))
            raw += 1;
    }
    return fromRaw(negative ? -raw : raw);
}

QString Currency::toString(int decimals) const
{
    const qint64 a = m_raw < 0 ? -m_raw : m_raw;
    qint64 units = a / Scale;
    qint64 frac = a % Scale;
    int div = 1;
    for (int i = decimals; i < 4; ++i)
        div *= 10;
    // Half-even rounding of the hidden digits.
    qint64 shown = frac / div;
    const qint64 rest = frac % div;
    if (div > 1 && (rest * 2 > div || (rest * 2 == div && shown % 2 != 0)))
        ++shown;
    qint64 limit = 1;
    for (int i = 0; i < decimals; ++i)
        limit *= 10;
    if (shown >= limit) {
        shown -= limit;
        ++units;
    }
    QString s = QString::number(units);
    if (decimals > 0)
        s += QLatin1Char(',') + QString::number(shown).rightJustified(decimals, QLatin1Char('0'));
    if (m_raw < 0 && (units != 0 || shown != 0))
        s.prepend(QLatin1Char('-'));
    return s;
}

Currency Currency::roundedToCents() const
{
    const qint64 unit = 100; // one cent in ten-thousandths
    const long double v = (long double)m_raw / unit;
    return fromRaw(roundHalfEven(v) * unit);
}
