#include "platform/ajo.h"

#include "platform/database.h"

KantaVahti::KantaVahti(db::Database &kanta, Edistyminen *edistyminen) : m_kanta(kanta)
{
    if (edistyminen)
        kanta.setInterruptCheck([edistyminen] {
            edistyminen->vaihe(0, 0);
            return edistyminen->keskeytetaanko();
        });
}

KantaVahti::~KantaVahti() { m_kanta.setInterruptCheck({}); }

namespace {
EdistymisenLuoja g_luoja;
}

void AsetaEdistymisenLuoja(EdistymisenLuoja luoja) { g_luoja = std::move(luoja); }

std::unique_ptr<Edistyminen> UusiEdistyminen(const QString &otsikko)
{
    return g_luoja ? g_luoja(otsikko) : nullptr;
}
