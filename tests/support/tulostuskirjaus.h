// The engine's destination in tests: every document sent to the preview is kept, and the last
// printer and copies asked for are noted, with the pages sent to it.
#pragma once

#include "reports/Raporttiajo.h"
#include "reports/Sivusto.h"
#include "reports/Tulostus.h"

#include <vector>

struct Kirjaus : Tulostuskohde {
    std::vector<Asiakirja> esikatsellut;
    QString tulostin;
    int kopioita = -1;
    Asiakirja tulostettu;

    void esikatsele(const Sivusto &s, bool, bool) override
    {
        Asiakirja d = s.pohja();
        for (int i = 0; i < s.sivuja(); ++i)
            d.sivut.push_back(s.sivu(i));
        esikatsellut.push_back(std::move(d));
    }
    std::unique_ptr<Sivuvirta> tulostus(const QString &nimi, int k) override
    {
        tulostin = nimi;
        kopioita = k;
        struct Tulostus : Keraaja {
            Asiakirja &minne;
            explicit Tulostus(Asiakirja &m) : minne(m) {}
            void loppu(int riveja) override
            {
                Keraaja::loppu(riveja);
                minne = d;
            }
        };
        return std::make_unique<Tulostus>(tulostettu);
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
