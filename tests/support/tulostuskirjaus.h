// The engine's destination in tests: every document sent to the preview is kept, and the last
// printer and copies asked for are noted.
#pragma once

#include "reports/Raporttiajo.h"

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
