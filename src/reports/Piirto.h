// Painting a laid-out document. The painter's coordinates must be twips on the paper (see
// Asiakirja.h); PDF files are written at 1440 dots per inch, so there a twip is a dot.
#pragma once

#include "reports/Asiakirja.h"

#include <QPainter>
#include <memory>

class Edistyminen;
class QPdfWriter;
class QSaveFile;
class Sivusto;

// `pohja` gives the fonts the page's items refer to.
void PiirraSivu(QPainter &p, const Asiakirja &pohja, const Sivu &sivu);
void PiirraSivu(QPainter &p, const Asiakirja &d, int sivu);

// A PDF file written page by page as the pages come: each is painted and let go. The file
// appears at its path only when the last page is written (loppu); a run that stops before leaves
// nothing there, not even a part of the file. Throws RaporttiVirhe when it cannot be written.
class PdfVirta : public Sivuvirta {
public:
    explicit PdfVirta(const QString &polku);
    ~PdfVirta() override;

    void alku(const Asiakirja &pohja) override;
    void sivu(Sivu &&sivu) override;
    void loppu(int riveja) override;

private:
    QString m_polku;
    Asiakirja m_pohja;
    std::unique_ptr<QSaveFile> m_tiedosto;
    std::unique_ptr<QPdfWriter> m_pdf;
    QPainter m_p;
    int m_sivuja = 0;
};

// Writes the whole document as a PDF file. The file appears whole or not at all; throws
// RaporttiVirhe when it cannot be written.
void KirjoitaPdf(const Asiakirja &d, const QString &polku);
// The same from pages kept aside, showing progress page by page; a stop leaves no file and
// throws Keskeytetty.
void KirjoitaPdf(const Sivusto &s, const QString &polku, Edistyminen *edistyminen);
