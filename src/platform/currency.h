// Money: a signed 64-bit count of ten-thousandths, exact, stored as INTEGER.
#pragma once

#include <QString>
#include <QVariant>
#include <compare>
#include <optional>

class Currency {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(qint64 raw) { Currency c; c.m_raw = raw; return c; }
    static constexpr Currency fromUnits(qint64 euros) { return fromRaw(euros * Scale); }
    // Banker's rounding to the nearest ten-thousandth, as a conversion from floating point does.
    static Currency fromDouble(double value);
    // Finnish text: "12,50", "1 234,5", "12.50", "-3", "12,50 €". Empty or bad text gives nothing.
    static std::optional<Currency> parse(const QString &text);

    constexpr qint64 raw() const { return m_raw; }
    double toDouble() const { return double(m_raw) / Scale; }
    // "12,50" (two decimals, decimal comma, no grouping)
    QString toString(int decimals = 2) const;
    // Rounded to cents, half to even.
    Currency roundedToCents() const;

    constexpr Currency operator+(Currency o) const { return fromRaw(m_raw + o.m_raw); }
    constexpr Currency operator-(Currency o) const { return fromRaw(m_raw - o.m_raw); }
    constexpr Currency operator-() const { return fromRaw(-m_raw); }
    Currency &operator+=(Currency o) { m_raw += o.m_raw; return *this; }
    Currency &operator-=(Currency o) { m_raw -= o.m_raw; return *this; }
    Currency operator*(qint64 n) const { return fromRaw(m_raw * n); }
    Currency multiplied(double factor) const { return fromDouble(toDouble() * factor); }
    constexpr auto operator<=>(const Currency &) const = default;

    QVariant toVariant() const { return QVariant(qlonglong(m_raw)); }

private:
    qint64 m_raw = 0;
};
