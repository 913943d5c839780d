// The ten billing and reference lists of the payment book: a title, a base selection and a report,
// narrowed by an invoice-number range and the kind of invoice the user chooses.
#pragma once

#include <QString>
#include <functional>
#include <vector>

struct Laskulista {
    const char *valikko; // the menu entry's name
    QString teksti;      // the menu entry's text
    QString otsikko;
    QString valinta;     // the base selection formula
    QString raportti;
};

// In the order of the menu.
const std::vector<Laskulista> &Laskulistat();

// frmLaskulistarajaus: 0 "Kaikki laskut", 1 "Vain jäsenlaskut", 2 "Muut kuin jäsenlaskut".
enum class Laskurajaus { Kaikki = 0, Jasenlaskut = 1, Muut = 2 };

// The selection formula and the title of a run, from the base, the kind and the range as typed.
struct LaskulistanAjo {
    QString valinta;
    QString otsikko; // empty: no title formula
};
LaskulistanAjo LaskulistanRajaus(const Laskulista &l, Laskurajaus rajaus, const QString &alku, const QString &loppu);

// The questions of a list run: the kind window and the print settings (false: cancelled).
struct Laskulistakysymykset {
    std::function<Laskurajaus()> rajaus;
    std::function<bool()> tulostusasetukset;
};

// Asks the range, the kind and the print settings and runs the list on the main window's engine.
// Throws RaporttiVirhe.
void TulostaLaskulista(const Laskulista &l, const Laskulistakysymykset &k);
