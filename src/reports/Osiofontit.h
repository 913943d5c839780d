// Fonts handed in for sections of a report at run time.
#pragma once

#include "reports/Maaritys.h"

#include <QString>
#include <optional>

// A font handed in for one section of the report at run time. The section is "ALL", "DETAIL",
// "TITLE" (report header), "HEADER" (page header), "FOOTER" (page footer), "SUMMARY" (report
// footer), "GH<n>" or "GF<n>" (header and footer of group level n). Unset parts leave the
// report's own.
struct Osiofontti {
    QString osio;
    QString nimi;
    double koko = 0;
    std::optional<bool> kursiivi, alleviivattu, lihava;
};

// Reads "SECTION;font;size;italic;underline;bold;strikeout" where "X" leaves a part as it is
// (fewer parts may be given). An empty text gives nothing; a text without a section name throws
// RaporttiVirhe.
std::optional<Osiofontti> JasennaOsiofontti(const QString &teksti);

// Whether the section font is for the band `o`.
bool OsiofonttiKoskee(const Osiofontti &f, const Osa &o);
// The parts `paalle` sets replace those of `f`.
void YhdistaFontti(FonttiMaaritys &f, const FonttiMaaritys &paalle);
