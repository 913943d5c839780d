// A small club in a scratch home, the member window open on it, and a connection of the test's
// own to look at the database after each flow. Header-only, shared by the member window tests.
#pragma once

#include "core/MainModule.h"
#include "malliseura.h"
#include "members/ui/frmJasen.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPointer>
#include <QtTest>

// A click on a button of the window, as the user makes it: the button takes the focus first.
inline void paina(QAbstractButton *b) { QTest::mouseClick(b, Qt::LeftButton); }

struct JasenSeura {
    TestEnv env;
    ScriptedDialogs dlg;
    std::unique_ptr<db::Database> d;
    QPointer<frmJasen> w;

    // An empty club, or the generated club of `jasenia` members.
    explicit JasenSeura(int jasenia = 0)
    {
        MainModule::DatabasePath = env.path(QStringLiteral("seura.mdb"));
        if (jasenia > 0)
            d = db::Database::open(seurat::Kopio(jasenia, MainModule::DatabasePath));
        else
            d = malliseura::kopio(MainModule::DatabasePath);
    }
    ~JasenSeura() { delete w.data(); }

    qint64 jasen(const QString &suku, const QString &etu, const QVariant &numero = {})
    {
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrJasennumero, jrJasenmaksu) VALUES (?, ?, ?, 0)"),
                   {suku, etu, numero});
        return d->lastInsertId();
    }

    bool avaa()
    {
        w = new frmJasen;
        if (!w->Lataa())
            return false;
        w->show();
        w->activateWindow();
        return QTest::qWaitForWindowActive(w);
    }

    QVariant arvo(qint64 id, const QString &sarake)
    {
        return d->scalar(QStringLiteral("SELECT ") + sarake + QStringLiteral(" FROM jr WHERE jrID = ?"), {id});
    }
    int maara(const QString &ehto, const db::Params &p = {}) { return testi::maara(*d, ehto, p); }
    QString teksti(int i) const { return w->tYhteystiedot[i]->text(); }
};
