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

// The model chosen last in this session: the model window starts from it, the copies of unpaid
// invoices set it back to the Finnish giro form.
Laskumallivalinta &MuistettuLaskumalli();

// The report of the chosen model: jrotile(2).rpt for the giro form, jromak(2).rpt for the others;
// the club's own layout file whenever it is in use.
QString LaskunRaportti(const Laskumallivalinta &valinta);

enum class Tulostusjarjestys { Aakkostettu, Postinumero, Syntymapaiva };

// Where the print settings sent the invoices: to the preview or a PDF the batch goes as one
// document, to a printer each invoice is a job of its own with the pause for the tray.
enum class Tulostuspaikka { Peruttu, Asiakirja, Tulostin };

// What the windows ask on the way. Each may be left empty where the window does not ask it.
struct Tulostuskysymykset {
    // frmLaskumalli, asked unless the club's own layout is in use; nothing: cancelled.
    std::function<std::optional<Laskumallivalinta>()> laskumalli;
    // frmTulJarjValinta, asked for a batch.
    std::function<Tulostusjarjestys()> jarjestys;
    // frmTulostus. Left empty: one document.
    std::function<Tulostuspaikka()> tulostusasetukset;
};

struct Laskujentulostus {
    qint64 henkilo = 0;           // the name box holds one person (jrID): his invoices alone
    bool jatkaNumerosta = false;  // "Tulosta laskut laskunumerosta"
    bool myyntilajeittain = false; // the sales-type window: the table's order, no order question, no pause
};

// How the reports run; LaskuraportinTulostajat gives the program's own.
struct Laskujentulostajat {
    // One report with the selection "{jr.jrID}=" + jrID: one person, or one printer job of a batch.
    std::function<void(const QString &raportti, qint64 jrID)> henkilon;
    // The batch as one document: the invoices of `jmIDt` in this order.
    std::function<void(const QString &raportti, const QVector<qint64> &jmIDt)> eran;
};

// Prints the open batch and returns how many invoices were printed. Messages and questions go
// through the dialogs, progress and stop through the run. A report's fault goes on as
// RaporttiVirhe.
int TulostaLaskut(const Ajo &ajo, const Laskujentulostus &t, const Tulostuskysymykset &k,
                  const Laskujentulostajat &tulosta);

class Raporttiajo;

// The report engine `r` made ready for an invoice report: reset on the run's database, the file
// (a bare name from the program's folder, a path as it is), the club's formulas. Destination,
// copies and printer are left as the caller set them.
void ValmisteleLaskuraportti(Raporttiajo &r, const Ajo &ajo, const QString &raportti);

// The program's reports for TulostaLaskut on `r`, to the destination `kohde` sets on the engine
// before each run (the print settings' choice; a PDF file for the command line). One report
// selects by `yksi` ("{jr.jrID}"), a document keeps the keys of `era` ("{jm.jmID}") in order;
// `kaavat` are added after the club's.
Laskujentulostajat LaskuraportinTulostajat(Raporttiajo &r, const Ajo &ajo, const std::function<void(Raporttiajo &)> &kohde,
                                          const QString &yksi = QStringLiteral("{jr.jrID}"),
                                          const QString &era = QStringLiteral("{jm.jmID}"), const QStringList &kaavat = {});
