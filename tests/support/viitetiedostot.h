// Payment files written for the tests: the same payments as the fixed-width file and as a
// camt.054 notification, in the shapes the banks use.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace viitetiedostot {

struct Maksu {
    QString arkisto;
    QString viite; // national reference
    QString nimi;
    qint64 sentit = 0;
    bool oikaisu = false;
    QString kirjauspaiva = QStringLiteral("2025-01-14");
    QString maksupaiva = QStringLiteral("2025-01-13");
    bool rf = false; // the camt.054 carries the reference as an RF reference
};

// One batch: record 0, a record 3 per payment, record 9 unless `loppusummat` is false.
QByteArray Ktl(const QList<Maksu> &maksut, bool loppusummat = true);

enum class Muoto {
    Eraittain,  // one credit entry holding every payment, with NbOfTxs and TtlAmt
    Yksittain,  // one credit entry per payment
    Versio08,   // one entry per payment in the camt.054.001.08 layout (Pty/Nm, Sts/Cd, TxDtls/Amt)
};

// One notification: the payments as `muoto` says, then each correction as a reversed debit.
// `lisa` is put in as the last entries (debits, pending entries …).
QByteArray Camt(const QList<Maksu> &maksut, Muoto muoto = Muoto::Eraittain, const QString &lisa = {});

} // namespace viitetiedostot
