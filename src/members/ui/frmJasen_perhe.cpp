// The "Perhe" page: the family's head mark, its members and their classes, and the address
// change for the whole family.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "core/Ilmoitukset.h"
#include "members/Perhe.h"
#include "members/ui/NimipuuMalli.h"
#include "members/ui/frmPerheenUusiOsoite.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

QWidget *frmJasen::RakennaPerhe()
{
    auto *sivu = new QWidget;
    auto *g = new QGridLayout(sivu);

    chkPerhLaskutettava = new QCheckBox(QStringLiteral("Perheen laskutettava"), sivu);
    chkPerhLaskutettava->setObjectName(QStringLiteral("chkPerhLaskutettava"));
    connect(chkPerhLaskutettava, &QCheckBox::clicked, this, [this] { tietue::Suojattu([this] { chkPerhLaskutettava_Click(); }); });
    g->addWidget(chkPerhLaskutettava, 0, 0, 1, 2);

    lstFamily = new QListWidget(sivu);
    lstFamily->setObjectName(QStringLiteral("lstFamily"));
    connect(lstFamily, &QListWidget::currentRowChanged, this, [this] {
        if (!m_lataa)
            tietue::Suojattu([this] { lstFamily_Click(); });
    });
    m_henkilot = new NimiListaMalli(this);
    lstPersons = new QListView(sivu);
    lstPersons->setObjectName(QStringLiteral("lstPersons"));
    lstPersons->setUniformItemSizes(true);
    lstPersons->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstPersons->setModel(m_henkilot);
    connect(lstPersons, &QListView::doubleClicked, this, [this] { tietue::Suojattu([this] { lstPersons_Valitse(); }); });
    m_perheLista = new QStackedWidget(sivu);
    m_perheLista->addWidget(lstFamily);
    m_perheLista->addWidget(lstPersons);
    auto *otsikko = new QLabel(QStringLiteral("Perheenjäsenet:"), sivu);
    otsikko->setBuddy(lstFamily);
    g->addWidget(otsikko, 1, 0, 1, 2);
    g->addWidget(m_perheLista, 2, 0, 1, 2);

    auto *napit = new QHBoxLayout;
    auto nappi = [&](QPushButton *&b, const char *nimi, const QString &teksti, void (frmJasen::*f)()) {
        b = new QPushButton(teksti, sivu);
        b->setObjectName(QString::fromLatin1(nimi));
        connect(b, &QPushButton::clicked, this, [this, f] { tietue::Suojattu([this, f] { (this->*f)(); }); });
        napit->addWidget(b);
    };
    nappi(cLisaaPerhJas, "cLisaaPerhJas", QStringLiteral("Lisää"), &frmJasen::cLisaaPerhJas_Click);
    nappi(cPoistaPerhJas, "cPoistaPerhJas", QStringLiteral("Poista"), &frmJasen::cPoistaPerhJas_Click);
    nappi(cSelaaPerhJas, "cSelaaPerhJas", QStringLiteral("Selaa"), &frmJasen::cSelaaPerhJas_Click);
    napit->addStretch(1);
    g->addLayout(napit, 3, 0, 1, 2);

    tPerheenPaa = new QLineEdit(sivu);
    tPerheenPaa->setObjectName(QStringLiteral("tPerheenPaa"));
    tPerheenPaa->setReadOnly(true);
    g->addWidget(new QLabel(QStringLiteral("Kuuluu perheeseen:"), sivu), 4, 0);
    g->addWidget(tPerheenPaa, 4, 1);
    cMuutaPerheenOsoitteet = new QPushButton(QStringLiteral("Muuta perheenjäsenten osoitteet"), sivu);
    cMuutaPerheenOsoitteet->setObjectName(QStringLiteral("cMuutaPerheenOsoitteet"));
    connect(cMuutaPerheenOsoitteet, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { cMuutaPerheenOsoitteet_Click(); }); });
    g->addWidget(cMuutaPerheenOsoitteet, 5, 0, 1, 2, Qt::AlignLeft);

    auto *luokat = new QGroupBox(QStringLiteral("Perheluokka"), sivu);
    auto *lv = new QVBoxLayout(luokat);
    for (int i = 0; i < PerheLuokkia; ++i) {
        auto *c = new QCheckBox(PerheLuokkaOtsikko(i), luokat);
        c->setObjectName(QStringLiteral("chkPerheLuokka_%1").arg(i));
        connect(c, &QCheckBox::clicked, this, [this, i] { tietue::Suojattu([this, i] { chkPerheLuokka_Click(i); }); });
        chkPerheLuokka[size_t(i)] = c;
        lv->addWidget(c);
    }
    lv->addStretch(1);
    g->addWidget(luokat, 1, 2, 3, 1);
    g->setColumnStretch(1, 1);
    g->setRowStretch(2, 1);
    return sivu;
}

namespace {

void naytaLuokat(const std::array<QCheckBox *, 8> &laatikot, const PerheLuokat &luokat)
{
    for (int i = 0; i < PerheLuokkia; ++i)
        laatikot[size_t(i)]->setChecked(luokat[size_t(i)]);
}

} // namespace

void frmJasen::NaytaPerheLista()
{
    m_perheLista->setCurrentWidget(lstFamily);
    cPoistaPerhJas->setEnabled(true);
}

void frmJasen::LataaPerhe()
{
    // The panel is read again: classes that could not be stored (the reason was shown) go.
    if (bPerheLuokkaMuuttunut)
        TallennaPerheLuokat();
    bPerheLuokkaMuuttunut = false;
    m_lataa = true;
    NaytaPerheLista();
    lstFamily->clear();
    naytaLuokat(chkPerheLuokka, {});
    tPerheenPaa->clear();
    iPerheRivi = -1;
    const qint64 id = NykyinenId();
    if (id != 0) {
        const PerhePaneeli p = ::LataaPerhe(*m_db, id, chkPerhLaskutettava->isChecked());
        for (const PerheenJasen &j : p.jasenet) {
            auto *rivi = new QListWidgetItem(j.teksti, lstFamily);
            rivi->setData(Qt::UserRole, j.jrPID);
        }
        if (!p.jasenet.isEmpty()) {
            lstFamily->setCurrentRow(0);
            naytaLuokat(chkPerheLuokka, LueLuokat(*m_db, p.jasenet.first().jrPID));
        }
        tPerheenPaa->setText(p.perheenPaa);
    }
    m_lataa = false;
}

void frmJasen::lstFamily_Click()
{
    // Classes that could not be stored stay on screen under their own row.
    if (!TallennaValilehdet()) {
        m_lataa = true;
        if (bPerheLuokkaMuuttunut)
            lstFamily->setCurrentRow(iPerheRivi);
        m_lataa = false;
        return;
    }
    const QListWidgetItem *rivi = lstFamily->currentItem();
    if (!rivi)
        return;
    m_lataa = true;
    naytaLuokat(chkPerheLuokka, LueLuokat(*m_db, rivi->data(Qt::UserRole).toLongLong()));
    m_lataa = false;
}

void frmJasen::chkPerheLuokka_Click(int)
{
    bPerheLuokkaMuuttunut = true;
    iPerheRivi = lstFamily->currentRow();
    AloitaMuokkaus();
}

// False when the classes could not be stored: the reason has been shown and the ticks stay.
bool frmJasen::TallennaPerheLuokat()
{
    return tietue::Suojattu([this] {
        if (const QListWidgetItem *rivi = lstFamily->item(iPerheRivi)) {
            PerheLuokat luokat{};
            for (int i = 0; i < PerheLuokkia; ++i)
                luokat[size_t(i)] = chkPerheLuokka[size_t(i)]->isChecked();
            TallennaLuokat(*m_db, rivi->data(Qt::UserRole).toLongLong(), luokat);
        }
        bPerheLuokkaMuuttunut = false;
    });
}

void frmJasen::chkPerhLaskutettava_Click()
{
    const qint64 id = NykyinenId();
    if (bSiirtoKesken || id == 0)
        return;
    if (chkPerhLaskutettava->isChecked()) {
        // The head joins his own family at once, with no class.
        LiitaPaaPerheeseen(*m_db, id);
        LataaPerhe();
        AloitaMuokkaus();
        return;
    }
    if (!Kysy(QStringLiteral("Poistetaanko perheen tiedot?"))) {
        chkPerhLaskutettava->setChecked(true);
        return;
    }
    PuraPerhe(*m_db, id);
    m_lataa = true;
    lstFamily->clear();
    naytaLuokat(chkPerheLuokka, {});
    tPerheenPaa->clear();
    m_lataa = false;
    iPerheRivi = -1;
    bPerheLuokkaMuuttunut = false;
    AloitaMuokkaus();
}

void frmJasen::cLisaaPerhJas_Click()
{
    if (bPerheLuokkaMuuttunut && !TallennaPerheLuokat())
        return;
    if (m_perheLista->currentWidget() == lstPersons) {
        lstPersons_Valitse();
        return;
    }
    m_perheLista->setCurrentWidget(lstPersons);
    lstPersons->setFocus();
    cPoistaPerhJas->setEnabled(false);
}

// The highlighted person joins the family in view. Nothing is checked: the add is the user's
// to judge, and a failed add leaves the list as it was.
void frmJasen::lstPersons_Valitse()
{
    NaytaPerheLista();
    const int valittu = lstPersons->currentIndex().row();
    const qint64 henkilo = m_henkilot->jasenId(valittu);
    const qint64 id = NykyinenId();
    if (henkilo == 0 || id == 0)
        return;
    qint64 linkki = 0;
    try {
        linkki = LisaaPerheeseen(*m_db, id, henkilo);
    } catch (const db::DbError &) {
        return;
    }
    auto *rivi = new QListWidgetItem(m_henkilot->teksti(valittu), lstFamily);
    rivi->setData(Qt::UserRole, linkki);
    lstFamily->setFocus();
    lstFamily->setCurrentRow(lstFamily->count() - 1);
}

void frmJasen::cPoistaPerhJas_Click()
{
    if (bPerheLuokkaMuuttunut && !TallennaPerheLuokat())
        return;
    const int rivi = lstFamily->currentRow();
    if (rivi >= 0 && Kysy(QStringLiteral("Poistetaanko henkilö perheestä?"))) {
        PoistaPerheesta(*m_db, lstFamily->item(rivi)->data(Qt::UserRole).toLongLong());
        m_lataa = true;
        delete lstFamily->takeItem(rivi);
        lstFamily->setCurrentRow(-1);
        m_lataa = false;
    }
    lstFamily->setFocus();
    if (lstFamily->count() > 0 && lstFamily->currentRow() < 0)
        lstFamily->setCurrentRow(0);
}

void frmJasen::cSelaaPerhJas_Click()
{
    if (bPerheLuokkaMuuttunut && !TallennaPerheLuokat())
        return;
    NaytaPerheLista();
    lstFamily->setFocus();
    if (lstFamily->count() > 0)
        lstFamily->setCurrentRow(0);
}

void frmJasen::cMuutaPerheenOsoitteet_Click()
{
    if (bPerheLuokkaMuuttunut && !TallennaPerheLuokat())
        return;
    frmPerheenUusiOsoite d(this);
    d.Aseta({tYhteystiedot[iOsoite]->text(), tYhteystiedot[iPostinumero]->text(), tYhteystiedot[iPostitoimipaikka]->text(),
             tYhteystiedot[iMaa]->text()});
    d.exec();
    if (d.Cancelled)
        return;
    tYhteystiedot[iOsoite]->setText(d.Osoite);
    tYhteystiedot[iPostinumero]->setText(d.Postinumero);
    tYhteystiedot[iPostitoimipaikka]->setText(d.Postitoimipaikka);
    tYhteystiedot[iMaa]->setText(d.Maa);
    MuutaPerheenOsoitteet(*m_db, NykyinenId(), chkPerhLaskutettava->isChecked(),
                          {d.Osoite, d.Postinumero, d.Postitoimipaikka, d.Maa});
}
