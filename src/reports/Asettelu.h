// Layout: a definition and its rows become a document of pages. Bands are placed down the page
// in report order; groups open and close where their value changes; a band that does not fit
// goes to the next page, and one taller than a page is split between its lines.
#pragma once

#include "reports/Asiakirja.h"
#include "reports/Lauseke.h"
#include "reports/Rivilahde.h"
#include "platform/ajo.h"
#include "reports/Osiofontit.h"

struct Asetteluvalinnat {
    Kaavat kaavat;                       // in effect: the definition's, replaced by those handed in
    std::vector<Osiofontti> osiofontit;
    QMarginsF reunat;                    // twips; a side of 0 keeps the definition's margin
    QDate tanaan;                        // CurrentDate; today when not set
    const Ajo *ajo = nullptr;            // where progress goes and a stop comes from
};

// Lays out and hands each page to `ulos` as soon as it is final: at once, or when the group whose
// pages it counts (sivutus="oma") closes. A report that shows its whole TotalPages is laid out
// twice, the first time only to count the pages. Throws RaporttiVirhe for an unknown formula or
// function, or an image that is not there; Keskeytetty when the run is stopped.
void Aseta(const Maaritys &m, const Rivisto &rivit, const Asetteluvalinnat &v, Sivuvirta &ulos);
// The same from rows read as the layout goes: one outermost group at a time.
void Aseta(const Maaritys &m, Rivilahde &rivit, const Asetteluvalinnat &v, Sivuvirta &ulos);
// The whole document in memory, for tests and small reports.
Asiakirja Aseta(const Maaritys &m, const Rivisto &rivit, const Asetteluvalinnat &v);
