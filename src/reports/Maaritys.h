// A report definition as read from its file: page, data source, named formulas, bands and their
// items. Lengths are held in twips (1/1440 inch), the unit of the whole engine; the file gives
// them in millimetres.
#pragma once

#include "reports/Kaava.h"
#include "reports/Muotoilu.h"

#include <QColor>
#include <QMarginsF>
#include <QMap>
#include <QPageLayout>
#include <QPageSize>
#include <QRectF>
#include <optional>

namespace yksikko {
constexpr double TwipsiaTuumalla = 1440.0;
constexpr double TwipsiaMillilla = TwipsiaTuumalla / 25.4;
constexpr double TwipsiaPisteella = 20.0; // a typographic point
}

enum class KohdeLaji { Teksti, Viiva, Laatikko, Kuva, Viivakoodi, QrKoodi };

struct FonttiMaaritys {
    QString nimi;
    double koko = 0; // points; 0 leaves the band's or the report's
    std::optional<bool> lihava, kursiivi, alleviivattu;
};

struct Kohde {
    KohdeLaji laji = KohdeLaji::Teksti;
    QString tunnus;   // for messages: the item's name, or its line in the file
    QRectF alue;      // twips, from the band's (or the label's) top-left corner; a line runs
                      // from alue.topLeft() to alue.bottomRight()
    QString teksti;   // fixed text of a text item, the file of an image
    std::shared_ptr<Solmu> lauseke; // the value of a text, barcode or QR item
    std::shared_ptr<Solmu> nakyy;   // shown only when true
    FonttiMaaritys fontti;
    Qt::Alignment tasaus = Qt::AlignLeft | Qt::AlignTop;
    Muoto muoto = Muoto::Oletus;
    bool kasvaa = false;      // a text wraps and grows downwards, the band with it
    bool rivita = false;      // a text wraps within its box (labels); kasvaa implies it
    bool osiofontti = true;   // section fonts handed in at run time apply
    int kierto = 0;           // 90: a text reads upwards along its box's height, 270 downwards
    bool valinnainen = false; // an image that may be missing (a club's logo): then left out
    double paksuus = 10;      // line width in twips (half a point)
    QColor vari = Qt::black;
    QColor tausta;            // invalid: no fill
};

enum class OsaLaji { Raporttiotsikko, Sivuotsikko, Ryhmaotsikko, Rivi, Ryhmaalatunniste, Sivualatunniste, Raporttialatunniste };

struct Osa {
    OsaLaji laji = OsaLaji::Rivi;
    int taso = 0;           // group level, 1 for the outermost
    double korkeus = 0;     // twips
    bool alaosaan = false;  // kept at the bottom of the page (a giro slip)
    std::shared_ptr<Solmu> nakyy;
    FonttiMaaritys fontti;
    std::vector<Kohde> kohteet;
    // Detail only: labels and cards, several across and down.
    int sarakkeita = 1;
    double sarakeleveys = 0; // twips; 0 = the whole width
    double vaakavali = 0, pystyvali = 0;
    bool alas = false;       // fill each column down the page before the next (name lists)
};

struct Ryhma {
    std::shared_ptr<Solmu> lauseke;
    QString lausekeTeksti;
    bool laskeva = false;
    bool lajittele = true; // false: the rows keep the sort fields' order, the group only breaks on a change
    bool uusiSivu = false; // every group after the first starts a page
    // Every group starts a page, and PageNumber and TotalPages count the group's own pages (an
    // invoice's "Sivu 1/2" in a batch).
    bool omaSivutus = false;
    std::optional<Osa> otsikko, alatunniste;
};

struct Liitos {
    QString nimi;  // the name the formulas use ({pt.ptjrID}); the table's own by default
    QString taulu;
    std::shared_ptr<Solmu> ehto; // none: every pairing
    bool sisa = false;           // inner join; by default a left join that keeps the main row
};

struct Maaritys {
    QString tiedosto;  // where it was read from, for messages
    QString nimi;
    QPageSize sivukoko = QPageSize(QPageSize::A4);
    QPageLayout::Orientation suunta = QPageLayout::Portrait;
    QMarginsF reunat;  // twips
    // Items fixed to the paper (label sheets, cards, the giro slip): the margin settings do not
    // move this page.
    bool reunatLukittu = false;
    QString paataulu, paatauluNimi;
    std::vector<Liitos> liitokset;
    QMap<QString, std::shared_ptr<Solmu>> kaavat; // by name in lower case: the defaults
    QStringList jarjestys;                       // default sort fields
    QString valinta;                              // the report's own selection, always in force
    FonttiMaaritys fontti;                        // the report's font
    std::optional<Osa> raporttiotsikko, sivuotsikko, rivi, sivualatunniste, raporttialatunniste;
    std::vector<Ryhma> ryhmat;

    QSizeF sivunKoko() const; // twips, turned as the orientation says
    // Every band in the order of the page, for walks over all items.
    std::vector<Osa *> osat();
};

// Reads a definition. Every fault (a file that cannot be read, broken XML, an unknown element
// or attribute value, a formula that cannot be read) throws RaporttiVirhe naming the file and
// the line.
Maaritys LueMaaritys(const QString &polku);
Maaritys LueMaaritysTekstista(const QByteArray &xml, const QString &tiedosto);

// Where a report is read from: an existing path as it is; a bare name (".rpt" may be left out)
// from the program's folder when the user has put a file of that name there, otherwise from the
// built-in definitions. Throws RaporttiVirhe when neither has it.
QString EtsiRaportti(const QString &nimiTaiPolku);
