// The printing of the open batch, one report per invoice: the questions before it (the model,
// the order, continuing from a number, leaving out the e-mailed), the pause after every few for
// the printer's tray, and which report file prints. The windows ask; this decides and walks.
#pragma once

#include "platform/ajo.h"

#include <QString>
#include <QVector>
#include <functional>
#include <optional>

enum class Laskumalli { Tilisiirto, Yleislasku, Jasenkortti };

struct Laskumallivalinta {
    Laskumalli malli = Laskumalli::Tilisiirto;
    bool kaksikielinen = false;
};

// The report of the chosen model: jrotile(2).rpt for the giro form, jromak(2).rpt for the others;
// the club's own layout file whenever it is in use.
QString LaskunRaportti(const Laskumallivalinta &valinta);

enum class Tulostusjarjestys { Aakkostettu, Postinumero, Syntymapaiva };

// What the windows ask on the way. Each may be left empty where the window does not ask it.
struct Tulostuskysymykset {
    // frmLaskumalli, asked unless the club's own layout is in use.
    std::function<Laskumallivalinta()> laskumalli;
    // frmTulJarjValinta, asked for a batch.
    std::function<Tulostusjarjestys()> jarjestys;
    // frmTulostus: false when cancelled.
    std::function<bool()> tulostusasetukset;
};

struct Laskujentulostus {
    qint64 henkilo = 0;        // the name box holds one person (jrID): his invoices alone
    bool jatkaNumerosta = false; // "Tulosta laskut laskunumerosta"
    bool eraTauot = true;      // the sales-type window never pauses
};

// One invoice's printing: the report, its selection "{jr.jrID}=" + jrID; throws on failure.
using LaskunTulostaja = std::function<void(const QString &raportti, qint64 jrID)>;

// Prints the open batch and returns how many reports were run. Messages and questions go
// through the dialogs, progress and stop through the run.
int TulostaLaskut(const Ajo &ajo, const Laskujentulostus &t, const Tulostuskysymykset &k,
                  const LaskunTulostaja &tulosta);
