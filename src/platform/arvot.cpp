#include "platform/arvot.h"

#include <QLocale>
#include <QRegularExpression>

QString NullText(const QVariant &v, const QString &substitute)
{
    if (!v.isValid() || v.isNull())
        return substitute;
    return v.toString();
}

Currency NullCurrency(const QVariant &v, Currency substitute)
{
    if (!v.isValid() || v.isNull())
        return substitute;
    bool ok = false;
    const qlonglong raw = v.toLongLong(&ok);
    if (ok && v.metaType().id() != QMetaType::Double && v.metaType().id() != QMetaType::QString)
        return Currency::fromRaw(raw);
    if (v.metaType().id() == QMetaType::Double)
        return Currency::fromDouble(v.toDouble());
    if (auto c = Currency::parse(v.toString()))
        return *c;
    return substitute;
}

bool NullBoolean(const QVariant &v, bool substitute)
{
    if (!v.isValid() || v.isNull())
        return substitute;
    if (v.metaType().id() == QMetaType::QString) {
        const QString t = v.toString().trimmed();
        if (t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
        if (!OnNumeerinen(t))
            return substitute;
        return NumeroArvo(t) != 0;
    }
    return v.toLongLong() != 0 || v.toDouble() != 0;
}

qint64 NullLong(const QVariant &v, qint64 substitute)
{
    if (!v.isValid() || v.isNull())
        return substitute;
    bool ok = false;
    const qint64 n = v.toLongLong(&ok);
    return ok ? n : substitute;
}

QDate NullDate(const QVariant &v, const QDate &substitute)
{
    if (!v.isValid() || v.isNull())
        return substitute;
    if (v.metaType().id() == QMetaType::QDate)
        return v.toDate();
    if (v.metaType().id() == QMetaType::QDateTime)
        return v.toDateTime().date();
    const QDate d = ParsePaiva(v.toString());
    return d.isValid() ? d : substitute;
}

QVariant DbPaiva(const QDate &d)
{
    if (!d.isValid())
        return QVariant();
    return QVariant(d.toString(Qt::ISODate));
}

QString LukuKoneenMuotoon(const QString &text)
{
    QString t = text.trimmed();
    t.remove(QChar(0x00A0));
    t.remove(QChar(0x202F));
    t.remove(QLatin1Char(' '));
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    return t;
}

bool OnNumeerinen(const QString &text)
{
    static const QRegularExpression re(QStringLiteral("^[+-]?(\\d+(\\.\\d*)?|\\.\\d+)([eE][+-]?\\d+)?$"));
    const QString t = LukuKoneenMuotoon(text);
    return !t.isEmpty() && re.match(t).hasMatch();
}

double NumeroArvo(const QString &text)
{
    if (!OnNumeerinen(text))
        return 0;
    return LukuKoneenMuotoon(text).toDouble();
}

QDate ParsePaiva(const QString &text)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return {};
    QDate d = QDate::fromString(t.left(10), Qt::ISODate);
    if (d.isValid() && t.size() >= 10 && t[4] == QLatin1Char('-'))
        return d;
    static const QRegularExpression re(QStringLiteral("^(\\d{1,2})\\.(\\d{1,2})\\.(\\d{2}|\\d{4})$"));
    const auto m = re.match(t);
    if (!m.hasMatch())
        return {};
    int y = m.captured(3).toInt();
    if (m.captured(3).size() == 2)
        y += (y < 30 ? 2000 : 1900);
    d = QDate(y, m.captured(2).toInt(), m.captured(1).toInt());
    return d.isValid() ? d : QDate();
}

QString PaivaTekstina(const QDate &d)
{
    if (!d.isValid())
        return {};
    return QStringLiteral("%1.%2.%3").arg(d.day()).arg(d.month()).arg(d.year());
}

QString RahaKenttaan(const Currency &summa)
{
    QString s = summa.toString(4);
    while (s.endsWith(QLatin1Char('0')) && s.size() - s.indexOf(QLatin1Char(',')) > 3)
        s.chop(1);
    return s;
}

QString LukuKenttaan(double luku)
{
    QLocale fi(QLocale::Finnish, QLocale::Finland);
    fi.setNumberOptions(QLocale::OmitGroupSeparator);
    return fi.toString(luku, 'g', QLocale::FloatingPointShortest);
}
