// The report engine's destinations in the window layer: the preview and the printer, and the
// plain run of a report from a menu.
#pragma once

#include "reports/Asiakirja.h"

#include <memory>

class QPrinter;
class QWidget;
class Sivusto;

// Installs the preview window and the system's printers as the engine's destinations.
void AsennaTulostuskohde();

// A print job that paints each page it is given true to size from the paper's edge and lets it
// go. Let go before its end (a stopped run), the job is cancelled. Throws RaporttiVirhe when the
// printer cannot be started.
class Tulostinvirta : public Sivuvirta {
public:
    explicit Tulostinvirta(std::unique_ptr<QPrinter> tulostin);
    ~Tulostinvirta() override;

    void alku(const Asiakirja &pohja) override;
    void sivu(Sivu &&sivu) override;
    void loppu(int riveja) override;

private:
    struct Tila;
    std::unique_ptr<Tila> m;
};

// The preview's "Tulosta": the desktop's print dialog (printer, copies, pages), then the pages
// chosen with progress and "Keskeytä"; nothing when the user cancels the dialog.
void TulostaValinnalla(const Sivusto &s, QWidget *parent);

// The plain run: the print settings window, then the report with the club's name where the
// report takes it. A cancel prints nothing. A failure of the report throws RaporttiVirhe.
void PrintRaport(const QString &tiedosto, QWidget *parent = nullptr);
