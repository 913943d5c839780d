// The report engine as the program drives it: properties set one by one, then a run. Reset
// first, point it at a report file and the open database, hand over section fonts, named
// formulas, a selection formula and sort fields, choose the destination, and write 1 to Action.
//
// Margins are twips (1/1440 inch): the settings' margins multiplied by 48 arrive here, so one
// step of a margin setting is 1/30 inch (about 0.85 mm). A margin of 0 keeps the report's own.
#pragma once

#include "reports/Asiakirja.h"
#include "platform/ajo.h"

#include <QString>
#include <QVector>
#include <memory>

class Sivusto;

class Raporttiajo {
public:
    enum Kohde { Esikatselu = 0, Tulostin = 1, PdfTiedosto = 2 };

    QString ReportFileName;     // a path, or a bare name looked up as EtsiRaportti does
    QString DataFiles[18];      // the database; every slot holds the same path
    QString SelectionFormula;   // empty: every row
    QString Formulas[21];       // "Name= 'text'"
    QString SortFields[6];      // "+{table.field}"; all empty: the report's own order
    QString SectionFont[9];     // "SECTION;font;size;X;X;X;X"
    int Destination = Esikatselu;
    qint16 CopiesToPrinter = 1;
    QString PrinterName, PrinterDriver, PrinterPort;
    int WindowState = 0;        // 2: the preview opens maximised
    int WindowLeft = 0, WindowTop = 0; // where the preview stands when it is not maximised
    bool WindowShowPrintBtn = true;
    int MarginLeft = 0, MarginRight = 0, MarginTop = 0, MarginBottom = 0;
    QString PrintFileName;      // the file of the PdfTiedosto destination

    // A batch the program chose: with a field set ("{jm.jmID}"), the report holds the rows whose
    // field is one of the keys, in the keys' order, besides the selection formula.
    QString Rajauskentta;
    QVector<qint64> Rajausavaimet;

    // A run's own connection, date and progress: the report then reads what the run has written
    // and not yet committed. Without one the report opens the database of DataFiles[0].
    const Ajo *ajo = nullptr;

    // Back to a clean run: every data slot on `tietokanta`, no selection, formulas or sort
    // fields, the preview's print button on and the preview maximised.
    void ResetReportFormulas(const QString &tietokanta);

    // Writing 1 runs the report (Aja); other values do nothing. A report the user stops in its
    // own progress window prints nothing; a stop of a run's progress goes on to the run.
    void setAction(int arvo);

    // Lays out and sends to the destination page by page: a PDF file or the printer paints
    // each page as it is laid out, the preview keeps the pages in a temporary file. Throws
    // RaporttiVirhe, also when nothing matches the selection: nothing is printed then.
    void Aja();

    // Lays out and hands each page to `ulos` as soon as it is final.
    void Laadi(Sivuvirta &ulos) const;
    // The laid-out document whole in memory: tests and tools use it.
    Asiakirja Laadi() const;

    // Sends a document laid out elsewhere (a user's column report) where Aja sends its own:
    // destination, printer, copies and preview state as set. Throws RaporttiVirhe, also for a
    // document without rows.
    void Toimita(const Asiakirja &d);

    // The SELECT of the last layout, for messages and tests.
    QString viimeisinSql() const { return m_sql; }

private:
    mutable QString m_sql;
};

// Where the preview and the printer are: the window layer installs its own at start.
class Tulostuskohde {
public:
    virtual ~Tulostuskohde() = default;
    // Shows the pages; returns when the preview is closed.
    virtual void esikatsele(const Sivusto &sivut, bool maksimoitu, bool tulostusnappi) = 0;
    // A print job on the named printer (empty: the default one) that prints each page it is
    // given; a job let go before its end is cancelled. Throws RaporttiVirhe when there is no
    // printer.
    virtual std::unique_ptr<Sivuvirta> tulostus(const QString &tulostin, int kopioita) = 0;
};

void AsetaTulostuskohde(Tulostuskohde *kohde); // nullptr removes it
