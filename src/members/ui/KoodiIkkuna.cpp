#include "members/ui/KoodiIkkuna.h"

#include "core/Schema.h"
#include "members/Koodilistat.h"

#include <QLineEdit>

KoodiIkkuna::KoodiIkkuna(QWidget *parent, const char *nimi, const Tekstit &tekstit, cKoodi *olio, const QString &taulu)
    : KoodilistaIkkuna(parent, nimi, tekstit, olio), m_olio(olio)
{
    tKoodi = kentta("tKoodi", QStringLiteral("Koodi:"), Schema::leveys(taulu, taulu + QStringLiteral("_Koodi")),
                    [this](const QString &s) { m_olio->setKoodi(s); });
    tNimi = kentta("tNimi", QStringLiteral("Nimi:"), Schema::leveys(taulu, taulu + QStringLiteral("_Nimi")),
                   [this](const QString &s) { m_olio->setNimi(s); });
}

void KoodiIkkuna::naytaKentat()
{
    tKoodi->setText(m_olio->Koodi());
    tNimi->setText(m_olio->Nimi());
}
