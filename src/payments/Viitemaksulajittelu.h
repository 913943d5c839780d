// The payments of one batch of the bank's file sorted against the invoice history: received
// (the amount is the invoice's), to be checked (no invoice, or no member), and wrong sums. Each
// row carries the invoice's jmhID, or -1 when no invoice has the reference. The payment window
// shows the lists; nothing here writes.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QList>
#include <QString>

namespace db {
class Database;
}

struct ViitemaksuRivi {
    QString teksti;
    qint64 jmhID = -1;
};

struct ViitemaksujenLajittelu {
    QList<ViitemaksuRivi> Saapuneet;
    QList<ViitemaksuRivi> Tarkistettavat;
    QList<ViitemaksuRivi> Virheet;
};

// Each payment alone against the first invoice in jmhist with its reference: equal to the cent
// is received; an invoice printed without a total takes any amount when
// `suorituksellaMaksetuksiJosEiLoppusummaa` is on (the setting SuorituksellaMaksetuksiJosEiLoppusummaa).
// Corrections and record 5 are sorted like any payment, and an invoice already paid as if open.
ViitemaksujenLajittelu LajitteleEra(db::Database &db, const ViiteEra &era,
                                    bool suorituksellaMaksetuksiJosEiLoppusummaa);

// The payment's amount in cents, the field's digits as the old runtime's Val read them.
qint64 MaksunSentit(const ViiteTapahtuma &t);

// Cents as the lists print them, always with a point: 0 → "0.00", 5 → "0.05", 1234 → "12.34".
QString MuotoileSentit(qint64 sentit);

// The reference as it is searched: zeros gone from the front, "00001232" → "1232", "000" → "".
QString PoistaEtunollat(const QString &viite);

// The reference as the list rows show it, through its numeric value: leading zeros gone, and
// beyond 15 digits the rounded exponent form "5.59582243294671E+15".
QString ViitenumeroLukuna(const QString &viite);
