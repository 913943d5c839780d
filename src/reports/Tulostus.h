// The one report engine of the program, as the main window holds it, and the print state every
// print routine shares. A run is always: the print settings window, ResetReportFormulas, the
// report file, section fonts, destination and copies, formulas, selection, sort fields, run.
#pragma once

#include "reports/Raporttiajo.h"

// The engine of the main window.
Raporttiajo &Raportti();

// Shared print state.
inline qint16 TulostusLaite = 0;     // destination chosen in the print settings: 0 preview, 1 printer
inline qint16 Kopiot = 1;            // copies chosen; the next default
inline bool TulostusPeruttu = false; // the user pressed "Peruuta"

// Every data slot on the open database, no selection, formulas or sort fields, the preview's
// print button on, the preview maximised. The margins come from the settings (× 48).
void ResetReportFormulas();

// A window that prints (the member register) points the engine at its report and the open
// database when it opens; every run still sets its own file.
void ValmisteleRaporttikone(const QString &tiedosto);

// Section fonts from the settings' font and size. With `ryhmat` the report has group sections.
void AsetaOsioFontit(bool ryhmat, bool vainDetail);

// The club's identity into Formulas(0) to (10); AsetaMuistutusKaavat adds (11) and (12).
void AsetaSeuraKaavat();
// The same eleven formulas, in that order, for an engine of its own.
QStringList SeuranKaavat();
void AsetaMuistutusKaavat();

// "Nimi= 'arvo'" as the engine takes a named formula.
QString KaavaTeksti(const QString &nimi, const QString &arvo);

// Whether the plain run gives the report the club's name as Formulas(0).
bool SaaSeuranNimen(const QString &tiedosto);

// The answer of the print settings window's "Tulosta": the destination and the copies box.
// Copies that are no number ask, with the printer, whether one copy will do; false means No
// and the window stays open.
bool HyvaksyTulostusasetukset(int laite, const QString &kopioita);

// The plain run after the print settings window: reset, file, fonts, club name, run. Throws
// RaporttiVirhe.
void AjaRaportti(const QString &tiedosto);
// A list of the program's folder run the same way, with the club's name, a title when one is
// given ("Otsikko") and one sort field.
void AjaListaraportti(const QString &tiedosto, const QString &otsikko, const QString &lajittelu);
