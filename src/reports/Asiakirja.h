// A laid-out report: pages of positioned items, ready to paint on any device. Coordinates and
// sizes are twips (1/1440 inch) from the top-left corner of the paper; font sizes are pixel
// sizes in twips, so a painter scaled from twips to its device draws the page true to size.
#pragma once

#include "reports/Maaritys.h"

#include <QFont>
#include <QRgb>
#include <vector>

struct Tulostekohde {
    KohdeLaji laji = KohdeLaji::Teksti;
    QRectF alue;        // a line runs from alue.topLeft() to alue.bottomRight()
    QString teksti;     // text (lines separated by '\n'), barcode or QR content, image file
    int fontti = -1;    // index into Asiakirja::fontit
    int tasaus = 0;     // Qt::Alignment
    float paksuus = 0;  // pen width of a line or box, twips
    QRgb vari = qRgb(0, 0, 0);
    QRgb tausta = 0;    // alpha 0: no fill
    int kierto = 0;     // a text turned 90 (reading upwards) or 270 degrees within alue
};

struct Sivu {
    std::vector<Tulostekohde> kohteet;
};

struct Asiakirja {
    QString nimi;       // the report's name, for the PDF's title
    QPageSize sivukoko;
    QPageLayout::Orientation suunta = QPageLayout::Portrait;
    QSizeF koko;        // of one page, twips, turned as the orientation says
    std::vector<QFont> fontit;
    std::vector<Sivu> sivut;
    int riveja = 0;     // data rows the report was made of

    // The texts of a page in reading order (top to bottom, left to right), for tests and tools.
    QStringList tekstit(int sivu) const;
    // Every text item of a page, in reading order.
    std::vector<const Tulostekohde *> tekstikohteet(int sivu) const;
};

// Where laid-out pages go, one at a time and in order, as soon as each is final: a PDF file, a
// printer, the preview's page file, or an Asiakirja for tests and small reports.
class Sivuvirta {
public:
    virtual ~Sivuvirta() = default;
    // Before the first page: the document without pages (name, paper, fonts).
    virtual void alku(const Asiakirja &pohja) = 0;
    virtual void sivu(Sivu &&sivu) = 0;
    // After the last page: the data rows the report was made of.
    virtual void loppu(int riveja) = 0;
};

// Collects every page into one document.
class Keraaja : public Sivuvirta {
public:
    void alku(const Asiakirja &pohja) override;
    void sivu(Sivu &&sivu) override { d.sivut.push_back(std::move(sivu)); }
    void loppu(int riveja) override { d.riveja = riveja; }

    Asiakirja d;
};
