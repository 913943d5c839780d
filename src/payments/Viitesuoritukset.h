// Posting the bank's file into the payment ledger (table Suoritukset): every payment with its
// booking date, amount and archive id against the invoice of its reference. A payment already in
// the ledger (the same archive id on the same date) is passed over, so a file read twice posts
// nothing twice; an invoice is closed, with the date of the payment that closed it, once its
// payments reach its total, and a partly paid one stays open with its balance.
#pragma once

#include "payments/Viiteaineisto.h"
#include "platform/currency.h"

#include <QList>
#include <QStringList>

namespace db {
class Database;
}

struct ViitesuoritustenKirjaus {
    int nahty = 0, kirjattu = 0;
    Currency nahtySumma, kirjattuSumma;
    QStringList ohitetut; // payments that could not be posted, each with the reason
};

// The archive id as the ledger keeps it: at most 20 characters.
constexpr int ArkistointitunnuksenPituus = 20;

// Posts every batch of the file in one transaction. A markka batch is not posted: its payments are named.
ViitesuoritustenKirjaus KirjaaSuoritukset(db::Database &db, const QList<ViiteEra> &erat);

// "Kirjattu 3 / 8" and the posted amount beside the seen one, in the Finnish currency form.
QString KirjausViesti(const ViitesuoritustenKirjaus &k);
// The payments that were not posted, named; empty when there were none.
QString OhitettujenViesti(const ViitesuoritustenKirjaus &k);

// The payment's booking date: "20" + YY, MM, DD. Invalid when the field is no date.
QDate Kirjauspaiva(const ViiteTapahtuma &t);
