#include "members/ui/frmPROMyyntilajit.h"

#include "core/Schema.h"
#include "members/Koodilistat.h"

#include <QLineEdit>

namespace {

KoodilistaIkkuna::Tekstit tekstit()
{
    KoodilistaIkkuna::Tekstit t;
    t.otsikko = QStringLiteral("Myyntilajit");
    t.poistokysymys = QStringLiteral("Poistetaanko näytössä oleva myyntilaji?");
    t.juuri = QStringLiteral(" - Myyntilajit - ");
    t.vihjeTallenna = QStringLiteral("Tallenna näytöllä oleva myyntilaji [F3]");
    t.vihjePoista = QStringLiteral("Poista näytössä oleva myyntilaji [F4]");
    t.vihjeSelaa = QStringLiteral("Selaa myyntilajeja [F5]");
    t.vihjeSulje = QStringLiteral("Sulje Myyntilajit [Alt+F4]");
    return t;
}

} // namespace

frmPROMyyntilajit::frmPROMyyntilajit(QWidget *parent)
    : KoodilistaIkkuna(parent, "frmPROMyyntilajit", tekstit(), new cMyyntilaji), m_olio(static_cast<cMyyntilaji *>(curMainObject))
{
    const QString taulu = QStringLiteral("ml");
    tNumero = kentta("tNumero", QStringLiteral("Numero:"), Schema::leveys(taulu, QStringLiteral("mlNumero")),
                     [this](const QString &s) { m_olio->setNumero(s); });
    tNimi = kentta("tNimi", QStringLiteral("Nimi:"), Schema::leveys(taulu, QStringLiteral("mlNimi")),
                   [this](const QString &s) { m_olio->setNimi(s); });
}

void frmPROMyyntilajit::naytaKentat()
{
    tNumero->setText(m_olio->Numero());
    tNimi->setText(m_olio->Nimi());
}

void AvaaMyyntilajit(QWidget *parent) { AvaaKoodilista<frmPROMyyntilajit>(parent); }
