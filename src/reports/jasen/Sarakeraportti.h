// The printout of a user's column report: the rows the search conditions select, one line per
// row, the definition's columns side by side with their headers.
//
// Columns stand left to right at their widths (millimetres); when together they are wider than
// the paper allows they are narrowed in proportion, so they never overlap, and a text too long
// for its column is cut with dots. A column of width 0 or less gets 30 mm. Numbers and money are
// aligned to the right.
#pragma once

#include "platform/database.h"
#include "reports/Asiakirja.h"
#include "reports/jasen/RapMaaritys.h"

#include <QDate>
#include <QMarginsF>

struct SarakeraportinAjo {
    QString seura;    // the club's name, on top of the first page
    QString rajaus;   // the search conditions as a sentence, under the heading
    QString sql;      // the SELECT of the rows, with its values
    db::Params arvot;
    QString fontti = QStringLiteral("Times New Roman");
    int koko = 10;    // points, of the rows and headers
    QMarginsF reunat; // twips; a side of 0 keeps the report's own (15 mm, top 12, bottom 10)
    QDate tanaan;     // the printing date in the footer; today when not set
};

// Fetches the rows and lays them out. A field missing from the SELECT prints empty (the plain
// SELECT of "every member" has no attribute fields). Throws RaporttiVirhe.
Asiakirja LaadiSarakeraportti(db::Database &db, const RepSettings &r, const SarakeraportinAjo &ajo);
