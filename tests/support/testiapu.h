// Small tools the tests share: typing as a user does, counting and reading rows, working a modal
// window once its own event loop runs, and scratch files.
#pragma once

#include "platform/database.h"

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <memory>

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

// Works the next modal window of type T once it is up, and closes it if the work left it open.
// Polls for a while, so a window that loads before it shows is waited for.
template <class T, class F>
void kunAuki(F tehtava)
{
    auto *ajastin = new QTimer;
    auto kerrat = std::make_shared<int>(0);
    ajastin->setInterval(10);
    QObject::connect(ajastin, &QTimer::timeout, [ajastin, kerrat, tehtava] {
        T *w = qobject_cast<T *>(QApplication::activeModalWidget());
        if (!w && ++*kerrat < 1000)
            return;
        ajastin->stop();
        ajastin->deleteLater();
        if (w) {
            tehtava(w);
            if (w->isVisible())
                w->close();
        }
    });
    ajastin->start();
}

} // namespace testi
