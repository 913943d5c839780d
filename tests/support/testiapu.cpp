#include "testiapu.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QRandomGenerator>
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

void paina(QAbstractButton *b)
{
    QVERIFY2(b->isVisible() && b->isEnabled(), qPrintable(b->objectName()));
    // A radio button or check box takes the click on its mark, at the left, not in its middle.
    const bool merkki = qobject_cast<QRadioButton *>(b) || qobject_cast<QCheckBox *>(b);
    QTest::mouseClick(b, Qt::LeftButton, {}, merkki ? QPoint(qMin(8, b->width() / 2), b->height() / 2) : QPoint());
}

quint32 siemen(quint32 oletus)
{
    bool ok = false;
    quint32 s = qEnvironmentVariable("VONARI_SIEMEN").toUInt(&ok);
    if (!ok)
        s = oletus ? oletus : QRandomGenerator::global()->generate();
    qInfo("random seed %u (replay with VONARI_SIEMEN=%u)", s, s);
    return s;
}

QList<QPointer<QTimer>> &odotukset()
{
    static QList<QPointer<QTimer>> o;
    return o;
}

int avaamatta()
{
    int n = 0;
    for (const QPointer<QTimer> &t : std::exchange(odotukset(), {}))
        if (t) {
            ++n;
            t->stop();
            t->deleteLater();
        }
    return n;
}

} // namespace testi
