// Test clubs for the database lifecycle: a club's file made from the template and upgraded, and
// tools to compare, damage and fence in files.
#pragma once

#include "core/Malli.h"
#include "core/Tietokantanimet.h"
#include "core/UpdateDatabase.h"
#include "ydinapu.h"

#include <sys/mount.h>

namespace kerho {

// A club of `jasenia` members, each with an invoice in history and its row, and an attribute.
inline void luo(const QString &polku, int jasenia)
{
    LuoMalliTietokanta(polku);
    auto d = db::Database::open(polku);
    UpdateDatabase(*d);
    KantaStore(*d).writeString(QStringLiteral("RegName"), QStringLiteral("Testiseura ry"));
    db::Transaction t(*d);
    d->executeScript(QStringLiteral(
        "INSERT INTO lt (ltNimi) VALUES ('JÄSENMAKSU'); INSERT INTO me (meTeksti) VALUES ('Kiitos!');"
        "INSERT INTO ml (mlNumero, mlNimi) VALUES ('1', 'Kahvi'); INSERT INTO pi (piNimi) VALUES ('Hallitus');"
        "INSERT INTO Jasenlaji (Jasenlaji_Koodi, Jasenlaji_Nimi) VALUES ('V', 'Varsinainen');"
        "INSERT INTO Jasenryhma (Jasenryhma_Koodi, Jasenryhma_Nimi) VALUES ('A', 'Aikuiset');"));
    db::Statement jr(*d, QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrOsoite, jrJasennumero, jrMuistio) "
                                        "VALUES (?, ?, ?, ?, ?)"), {1, 1, 1, 1, 1});
    db::Statement hist(*d, QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmLaskunumero, jmhjmHinta, jmhjmTeksti) "
                                          "VALUES (?, ?, ?, 250000, 'Jäsenmaksu')"), {1, 1, 1});
    db::Statement rivi(*d, QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRHinta, jmRTeksti, jmRjrID) VALUES (?, 250000, 'Jäsenmaksu', ?)"),
                       {1, 1});
    db::Statement pt(*d, QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValLong) VALUES (?, 1, ?)"), {1, 1});
    for (int i = 1; i <= jasenia; ++i) {
        jr.reset({QStringLiteral("Sukunimi%1").arg(i % 997), QStringLiteral("Etunimi%1").arg(i % 101),
                  QStringLiteral("Mäkikatu %1 B %2").arg(i % 300).arg(i % 40), QString::number(i),
                  QStringLiteral("Muistiinpano jäsenestä %1. ").repeated(1 + i % 4).arg(i)});
        hist.reset({i, i, 1000 + i});
        rivi.reset({i, i});
        pt.reset({i, i});
        for (db::Statement *s : {&jr, &hist, &rivi, &pt})
            s->next();
    }
    d->execute(QStringLiteral("INSERT INTO jm (jmjrID, jmLaskunumero, jmHinta, jmTeksti) "
                              "SELECT jrID, 5000 + jrID, 300000, 'Jäsenmaksu' FROM jr WHERE jrID <= 5"));
    t.commit();
}

using Maarat = QMap<QString, qint64>;

// Rows of every table (`merkityt` false: leaving out the rows a backup marks; true: only those).
inline Maarat rivit(const QString &polku, bool merkityt = false)
{
    Maarat m;
    auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
    for (const QString &taulu : d->tableNames()) {
        const bool merkitty = d->columnNames(taulu).contains(QStringLiteral("BackupRow"));
        if (merkityt && !merkitty)
            continue;
        const QString ehto = !merkitty ? QString() : merkityt ? QStringLiteral(" WHERE BackupRow = 1") : QStringLiteral(" WHERE BackupRow IS NOT 1");
        m.insert(taulu, d->scalar(QStringLiteral("SELECT count(*) FROM \"%1\"%2").arg(taulu, ehto)).toLongLong());
    }
    return m;
}

inline qint64 merkittyja(const QString &polku)
{
    qint64 n = 0;
    for (qint64 m : rivit(polku, true))
        n += m;
    return n;
}

inline bool ehja(const QString &polku)
{
    try {
        auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
        return d->scalar(QStringLiteral("PRAGMA integrity_check")).toString() == QLatin1String("ok");
    } catch (const db::DbError &) {
        return false;
    }
}

inline QByteArray sisalto(const QString &polku)
{
    QFile f(polku);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Overwrites `maara` bytes at `kohta` with garbage, as a failing disk would.
inline void turmele(const QString &polku, qint64 kohta, int maara)
{
    QFile f(polku);
    QVERIFY(f.open(QIODevice::ReadWrite) && f.seek(kohta));
    QByteArray roska(maara, '\0');
    for (int i = 0; i < maara; ++i)
        roska[i] = char((i * 37 + 11) & 0xff);
    f.write(roska);
}

// Files that are no club's database, and what the message about each must tell.
inline void vieraatTiedostot()
{
    QTest::addColumn<QByteArray>("tavut");
    QTest::addColumn<QString>("kerrotaan");
    QByteArray jet(4096, '\0');
    jet.replace(4, 15, "Standard Jet DB");
    QTest::newRow("Access") << jet << QStringLiteral("Access-tietokanta");
    QTest::newRow("teksti") << QByteArray("jäsenet;osoitteet\n") << QStringLiteral("ei ole Vonarin tietokanta");
    QTest::newRow("tyhjä") << QByteArray() << QStringLiteral("on tyhjä");
}

// A small file system of its own for a folder (full disk, read-only medium). Needs the right to
// mount; `ok()` tells whether it was granted.
struct Liitos {
    Liitos(const QString &kansio, const QByteArray &valinnat, unsigned long liput = 0) : kansio(QFile::encodeName(kansio))
    {
        ok = ::mount("tmpfs", this->kansio.constData(), "tmpfs", liput, valinnat.constData()) == 0;
    }
    ~Liitos()
    {
        if (ok)
            ::umount2(kansio.constData(), MNT_DETACH);
    }
    QByteArray kansio;
    bool ok = false;
};

} // namespace kerho
