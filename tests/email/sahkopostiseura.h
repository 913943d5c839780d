// The demonstration club with an open batch of membership invoices (dated 1.3.2027, due
// 31.3.2027, one row "Vuosimaksu" of 25,00) and the shipped e-mail templates in the program's
// folder, which the settings point to. Header-only.
#pragma once

#include "../invoicing/laskuseura.h"
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "email/Sahkopostilaskut.h"
#include "invoicing/Jasenmaksuajo.h"
#include "platform/ajo.h"
#include "platform/files.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"

#include <QtTest>

struct Sahkopostiseura {
    TestEnv env;
    ScriptedDialogs dlg;
    QString kanta;
    std::unique_ptr<db::Database> d;

    Sahkopostiseura()
    {
        kanta = seurat::Kopio(150, env.path(QStringLiteral("demo1.mdb")));
        d = db::Database::open(kanta);
        LueAsetukset(*d);
        MainModule::DatabasePath = kanta;
        files::ensureFolder(files::programFolder());
        QVERIFY(VarmistaSahkopohjat(files::programFolder()));
        LisaaJasenmaksut(Ajo(*d), laskuseura::lomake(), false);
    }

    QString ohjelmanTiedosto(const QString &nimi) const { return files::joinPath(files::programFolder(), nimi); }

    // A template of our own in place of the shipped one.
    void pohja(const QString &nimi, const QByteArray &teksti) const
    {
        QFile f(ohjelmanTiedosto(nimi));
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(teksti);
    }

    qint64 luku(const QString &sql, const db::Params &arvot = {}) const { return NullLong(d->scalar(sql, arvot)); }
};
