// Small tools the tests share: typing as a user does, counting and reading rows, working a modal
// window once its own event loop runs, and scratch files.
#pragma once

#include "platform/database.h"

#include <QApplication>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QTest>
#include <memory>

class QAbstractButton;
class QLineEdit;
class QListWidget;
class QWidget;

namespace testi {

// Gives `w` the focus and types `teksti` key by key, ä and ö included.
void kirjoita(QWidget *w, const QString &teksti);
// Selects the whole text of the box and types `teksti` over it.
void korvaa(QLineEdit *t, const QString &teksti);

// SELECT count(*) FROM `ehto`.
int maara(db::Database &d, const QString &ehto, const db::Params &p = {});
// The first row of `sql` as "a|b|c" with Null as "N"; "(ei riviä)" when there is none.
QString rivi(db::Database &d, const QString &sql, const db::Params &p = {});
// The texts of a list's rows.
QStringList rivit(const QListWidget *l);

// Writes `tavut` to `polku` and returns the path.
QString tiedosto(const QString &polku, const QByteArray &tavut);

// Presses a button with the mouse as a user does; a hidden or disabled button, which no user
// could press, fails the test.
void paina(QAbstractButton *b);

// The seed of a random test: VONARI_SIEMEN when set, to replay a run; otherwise `oletus`, or a
// new seed every run when `oletus` is 0. Printed, so a failing run can be replayed.
quint32 siemen(quint32 oletus = 0);

// The waits of kunAuki still running.
QList<QPointer<QTimer>> &odotukset();
// Stops the waits of kunAuki whose window never opened and returns how many there were; a test
// that expected a window checks this is 0 before it ends.
int avaamatta();

// Works the next modal window of type T once it is up, and closes it if the work left it open.
// Polls for a while, so a window that loads before it shows is waited for; a window that never
// comes fails the test.
template <class T, class F>
void kunAuki(F tehtava)
{
    auto *ajastin = new QTimer;
    auto kerrat = std::make_shared<int>(0);
    ajastin->setInterval(10);
    odotukset().append(ajastin);
    QObject::connect(ajastin, &QTimer::timeout, [ajastin, kerrat, tehtava] {
        T *w = qobject_cast<T *>(QApplication::activeModalWidget());
        if (!w && ++*kerrat < 1000)
            return;
        odotukset().removeAll(ajastin);
        ajastin->stop();
        ajastin->deleteLater();
        if (!w) {
            QTest::qFail("the expected window never opened", __FILE__, __LINE__);
            return;
        }
        tehtava(w);
        if (w->isVisible())
            w->close();
    });
    ajastin->start();
}

} // namespace testi
