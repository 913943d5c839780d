#include "testiapu.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

namespace testi {

void kirjoita(QWidget *w, const QString &teksti)
{
    w->setFocus();
    // Qt's key codes of the Latin-1 letters are their upper-case code points (Ä = Key_Adiaeresis),
    // those of ASCII punctuation their own.
    for (const QChar c : teksti) {
        const auto k = Qt::Key(c.isLetter() ? c.toUpper().unicode() : c.unicode());
        QTest::sendKeyEvent(QTest::Click, w, k, QString(c), Qt::NoModifier);
    }
}

void korvaa(QLineEdit *t, const QString &teksti)
{
    t->selectAll();
    QTest::keyClick(t, Qt::Key_Delete);
    kirjoita(t, teksti);
}

int maara(db::Database &d, const QString &ehto, const db::Params &p)
{
    return d.scalar(QStringLiteral("SELECT count(*) FROM ") + ehto, p).toInt();
}

QString rivi(db::Database &d, const QString &sql, const db::Params &p)
{
    db::Statement st(d, sql, p);
    if (!st.next())
        return QStringLiteral("(ei riviä)");
    QStringList s;
    for (int i = 0; i < st.columnCount(); ++i)
        s << (st.value(i).isNull() ? QStringLiteral("N") : st.value(i).toString());
    return s.join(QLatin1Char('|'));
}

QStringList rivit(const QListWidget *l)
{
    QStringList s;
    for (int i = 0; i < l->count(); ++i)
        s << l->item(i)->text();
    return s;
}

QString tiedosto(const QString &polku, const QByteArray &tavut)
{
    QFile f(polku);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(polku));
    f.write(tavut);
    return polku;
}

} // namespace testi
