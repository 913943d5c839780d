// The plain invoice run: the same header and up to four rows to every chosen person, one invoice
// each, numbered from the invoice counter. The whole batch commits as one transaction with the
// counter; a run stopped or failed half way leaves the database as it was.
#pragma once

#include "invoicing/Laskut.h"
#include "invoicing/Laskutusehdot.h"
#include "platform/ajo.h"

struct Laskutustulos {
    std::optional<Laskutusvirhe> virhe; // a refused check: nothing was written
    long lisatty = 0;                   // open invoices after the run
    QString viesti;                     // what the window tells at the end
};

Laskutustulos LisaaJasenmaksut(const Ajo &ajo, const MaksujenLuontiLomake &lomake, bool jasenikkunaAuki);

// The same run with a sales type on each row. It leaves out the member-window check, the
// invoice-number rule and the id guard, and takes the name box's entry as it stands.
Laskutustulos LisaaMyyntilajeittain(const Ajo &ajo, const ProMaksujenLuontiLomake &lomake);

// "Lisätty 1 lasku." / "Lisätty N laskua."
QString LisattyViesti(long laskuja);

// What every invoice of a run shares, from the window's header: dates, texts, the run's
// message, the boxes and the chosen account. Each run adds the payer, number, reference, total
// and its kind.
UusiLasku YhteisetTiedot(const LaskunYlatiedot &y, const LaskunPaivat &paivat, qint64 meID);

// "Ei löydy jäseniä, joille voi tehdä laskun." — a run that found nobody to invoice.
QString EiLaskutettaviaViesti();

// The total the window keeps in tSumma: the rows in use whose amount is a number, "12,50 €".
QString RivienLoppusumma(const std::array<PerusLaskurivi, 4> &rivit);
