// The engine's destination in tests: every document sent to the preview is kept, and the last
// printer and copies asked for are noted.
#pragma once

#include "reports/Raporttiajo.h"
#include "reports/Tulostus.h"

#include <vector>

struct Kirjaus : Tulostuskohde {
    std::vector<Asiakirja> esikatsellut;
    QString tulostin;
    int kopioita = -1;
    void esikatsele(const Asiakirja &d, bool, bool) override { esikatsellut.push_back(d); }
    void tulosta(const Asiakirja &, const QString &nimi, int k) override
    {
        tulostin = nimi;
        kopioita = k;
    }
};

// Back to a program that has printed nothing: no destination, a fresh engine, the shared print
// state at its defaults.
inline void PalautaTulostustila()
{
    AsetaTulostuskohde(nullptr);
    Raportti() = Raporttiajo();
    TulostusLaite = 0;
    Kopiot = 1;
    TulostusPeruttu = false;
}
