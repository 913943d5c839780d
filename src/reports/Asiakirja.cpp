#include "reports/Asiakirja.h"

#include <algorithm>

std::vector<const Tulostekohde *> Asiakirja::tekstikohteet(int sivu) const
{
    std::vector<const Tulostekohde *> v;
    if (sivu < 0 || sivu >= int(sivut.size()))
        return v;
    for (const Tulostekohde &k : sivut[size_t(sivu)].kohteet)
        if (k.laji == KohdeLaji::Teksti)
            v.push_back(&k);
    // Items on one line of print may differ in top by a fraction of a point: whole points decide.
    std::stable_sort(v.begin(), v.end(), [](const Tulostekohde *a, const Tulostekohde *b) {
        const auto ya = qRound(a->alue.top() / yksikko::TwipsiaPisteella), yb = qRound(b->alue.top() / yksikko::TwipsiaPisteella);
        return ya != yb ? ya < yb : a->alue.left() < b->alue.left();
    });
    return v;
}

QStringList Asiakirja::tekstit(int sivu) const
{
    QStringList t;
    for (const Tulostekohde *k : tekstikohteet(sivu))
        t << k->teksti;
    return t;
}

void Keraaja::alku(const Asiakirja &pohja)
{
    d = pohja;
    d.sivut.clear();
}
