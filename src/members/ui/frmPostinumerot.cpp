#include "members/ui/frmPostinumerot.h"

#include "core/Schema.h"
#include "members/Koodilistat.h"

#include <QLineEdit>

namespace {

KoodilistaIkkuna::Tekstit tekstit()
{
    KoodilistaIkkuna::Tekstit t;
    t.otsikko = QStringLiteral("Postinumerot");
    t.poistokysymys = QStringLiteral("Haluatko varmasti poistaa valitun postinumeron?");
    t.vihjeTallenna = QStringLiteral("Tallenna näytöllä oleva postinumero [F3]");
    t.vihjePoista = QStringLiteral("Poista näytössä oleva postinumero [F4]");
    t.vihjeSelaa = QStringLiteral("Selaa postinumeroluetteloa [F5]");
    t.vihjeSulje = QStringLiteral("Sulje Postinumerot [Alt+F4]");
    return t;
}

} // namespace

frmPostinumerot::frmPostinumerot(QWidget *parent)
    : KoodilistaIkkuna(parent, "frmPostinumerot", tekstit(), new cPostinumero), m_olio(static_cast<cPostinumero *>(curMainObject))
{
    const QString taulu = QStringLiteral("Postinumero");
    tPostinumero = kentta("tPostinumero", QStringLiteral("Postinumero:"), Schema::leveys(taulu, QStringLiteral("Postinumero")),
                          [this](const QString &s) { m_olio->setPostinumero(s); });
    tPostitoimipaikka = kentta("tPostitoimipaikka", QStringLiteral("Postitoimipaikka:"),
                               Schema::leveys(taulu, QStringLiteral("Postitoimipaikka")),
                               [this](const QString &s) { m_olio->setPostitoimipaikka(s); });
}

void frmPostinumerot::naytaKentat()
{
    tPostinumero->setText(m_olio->Postinumero());
    tPostitoimipaikka->setText(m_olio->Postitoimipaikka());
}

void AvaaPostinumerot(QWidget *parent) { AvaaKoodilista<frmPostinumerot>(parent); }
