// Text measured as the layout measures it, and word wrap to a width.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QStringList>
#include <array>

// Text widths as the sum of the characters' advances. The fonts are laid out without kerning, so
// this is the printed width without shaping every text (a ligature only makes it narrower).
class Mittari {
public:
    explicit Mittari(const QFont &f) : m_fm(f) { m_latin.fill(-1); }

    double leveys(const QString &s)
    {
        double w = 0;
        for (QChar c : s) {
            if (c.isSurrogate())
                return m_fm.horizontalAdvance(s);
            const char16_t u = c.unicode();
            if (u >= m_latin.size()) {
                w += m_fm.horizontalAdvance(c);
                continue;
            }
            double &a = m_latin[u];
            if (a < 0)
                a = m_fm.horizontalAdvance(c);
            w += a;
        }
        return w;
    }
    const QFontMetricsF &fm() const { return m_fm; }

private:
    QFontMetricsF m_fm;
    std::array<double, 256> m_latin;
};

// Word wrap to a width; a word wider than the line is cut where it must be.
QStringList Rivita(const QString &kappale, double leveys, Mittari &fm);
