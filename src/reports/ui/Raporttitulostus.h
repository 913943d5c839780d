// The report engine's destinations in the window layer: the preview and the printer, and the
// plain run of a report from a menu.
#pragma once

#include "reports/Asiakirja.h"

class QPrinter;
class QWidget;

// Installs the preview window and the system's printers as the engine's destinations.
void AsennaTulostuskohde();

// Paints every page on the printer, true to size from the paper's edge. Throws RaporttiVirhe.
void TulostaAsiakirja(const Asiakirja &d, QPrinter &tulostin);
// The same after the system's print dialog; nothing when the user cancels it.
void TulostaValinnalla(const Asiakirja &d, QWidget *parent);

// The plain run: the print settings window, then the report with the club's name where the
// report takes it. A cancel prints nothing. A failure of the report throws RaporttiVirhe.
void PrintRaport(const QString &tiedosto, QWidget *parent = nullptr);
