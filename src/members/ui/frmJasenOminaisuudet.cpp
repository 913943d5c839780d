#include "members/ui/frmJasenOminaisuudet.h"
#include "core/ui/Tietueikkuna.h"

#include "core/Ilmoitukset.h"
#include "members/JasenenPiirteet.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/Ikkunaapu.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>

namespace {

QListWidgetItem *rivi(QListWidget *l, const ListaRivi &r)
{
    auto *i = new QListWidgetItem(r.teksti, l);
    i->setData(Qt::UserRole, r.id);
    return i;
}

qint64 itemData(const QListWidgetItem *i) { return i ? i->data(Qt::UserRole).toLongLong() : 0; }

} // namespace

frmJasenOminaisuudet::frmJasenOminaisuudet(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("frmJasenOminaisuudet"));
    lstAllPt = new QListWidget(this);
    lstAllPt->setObjectName(QStringLiteral("lstAllPt"));
    lstAllPi = new QListWidget(this);
    lstAllPi->setObjectName(QStringLiteral("lstAllPi"));
    lstAllPi->hide();
    lstAllPi->installEventFilter(this);
    auto nappi = [this](const char *nimi, const QString &teksti) {
        auto *b = new QPushButton(teksti, this);
        b->setObjectName(QLatin1String(nimi));
        return b;
    };
    cLisaaPiirre = nappi("cLisaaPiirre", QStringLiteral("Lisää"));
    cPoistaPiirre = nappi("cPoistaPiirre", QStringLiteral("Poista"));
    cSelaaPiirre = nappi("cSelaaPiirre", QStringLiteral("Selaa"));
    arvot = new ArvoPaneeli(this);

    // lstAllPi takes the place of lstAllPt while a definition is being chosen.
    auto *g = new QGridLayout(this);
    g->addWidget(lstAllPt, 0, 0);
    g->addWidget(lstAllPi, 0, 0);
    auto *napit = new QHBoxLayout;
    napit->addWidget(cLisaaPiirre);
    napit->addWidget(cPoistaPiirre);
    napit->addWidget(cSelaaPiirre);
    g->addLayout(napit, 1, 0);
    g->addWidget(arvot, 0, 1, 2, 1);
    g->setColumnStretch(0, 2);
    g->setColumnStretch(1, 3);

    connect(cLisaaPiirre, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { lisaaPiirre(); }); });
    connect(cPoistaPiirre, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { poistaPiirre(); }); });
    connect(cSelaaPiirre, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { selaaPiirre(); }); });
    connect(lstAllPt, &QListWidget::currentRowChanged, this, [this] {
        if (!m_lataa)
            tietue::Suojattu([this] { lstAllPt_Click(); });
    });
    connect(lstAllPi, &QListWidget::currentRowChanged, this, [this] { tietue::Suojattu([this] { lstAllPi_Click(); }); });
    connect(lstAllPi, &QListWidget::itemDoubleClicked, this, [this] { tietue::Suojattu([this] { liita(); }); });
    connect(arvot, &ArvoPaneeli::muutettu, this, &frmJasenOminaisuudet::arvoMuuttui);
}

bool frmJasenOminaisuudet::eventFilter(QObject *kohde, QEvent *e)
{
    if (kohde == lstAllPi && e->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent *>(e)->key();
        if (k == Qt::Key_Return || k == Qt::Key_Enter) {
            // The keystroke that pressed Lisää never reaches the list, so every Enter here is the user's.
            tietue::Suojattu([this] { liita(); });
            return true;
        }
    }
    return QWidget::eventFilter(kohde, e);
}

void frmJasenOminaisuudet::naytaJasen(qint64 jrID)
{
    // Another member's attachments are shown: a value that could not be stored (the reason was
    // shown) goes with the old list.
    if (bPiirreMuuttunut && !tallennaPiirre())
        bPiirreMuuttunut = false;
    m_jrID = jrID;
    m_lataa = true;
    lstAllPt->clear();
    m_lataa = false;
    arvot->TyhjennaArvot();
    tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        m_lataa = true;
        for (const ListaRivi &r : JasenenPiirteet(*d, m_jrID))
            rivi(lstAllPt, r);
        m_lataa = false;
    });
    m_lataa = false;
    if (lstAllPt->count() > 0)
        valitse(0);
}

void frmJasenOminaisuudet::valitse(int r)
{
    m_lataa = true;
    lstAllPt->setCurrentRow(r);
    m_lataa = false;
    tietue::Suojattu([this] { naytaValittu(); });
}

bool frmJasenOminaisuudet::tallennaPiirre()
{
    if (!bPiirreMuuttunut)
        return true;
    return tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        const TallennettavatArvot a = TallennaPiirreArvo(*d, m_muokattuPt, arvot->syote());
        arvot->tyhjenna(a.tyhjenna);
        bPiirreMuuttunut = false;
    });
}

bool frmJasenOminaisuudet::tallennaKesken()
{
    if (!tallennaPiirre())
        return false;
    emit perheTallennettava();
    return true;
}

void frmJasenOminaisuudet::paivitaPiirteet()
{
    lstAllPi->clear();
    tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        for (const ListaRivi &r : Maaritykset(*d, true))
            rivi(lstAllPi, r);
    });
}

void frmJasenOminaisuudet::palaaSelaukseen()
{
    lstAllPi->hide();
    lstAllPt->show();
    cPoistaPiirre->setEnabled(true);
}

void frmJasenOminaisuudet::peruPiirre()
{
    if (!bPiirreMuuttunut)
        return;
    bPiirreMuuttunut = false;
    if (lstAllPt->currentRow() >= 0)
        valitse(lstAllPt->currentRow());
}

void frmJasenOminaisuudet::arvoMuuttui()
{
    bPiirreMuuttunut = true;
    m_muokattuPt = itemData(lstAllPt->currentItem());
    emit muutettu();
}

void frmJasenOminaisuudet::lisaaPiirre()
{
    if (!lstAllPi->isHidden()) {
        liita();
        return;
    }
    if (!tallennaKesken())
        return;
    arvot->TyhjennaArvot();
    lstAllPi->show();
    cPoistaPiirre->setEnabled(false);
    lstAllPt->hide();
    lstAllPi->setFocus();
}

void frmJasenOminaisuudet::liita()
{
    palaaSelaukseen();
    QListWidgetItem *valittu = lstAllPi->currentItem();
    if (!valittu || !valittu->isSelected() || m_jrID <= 0)
        return;
    auto d = tietue::AvaaKanta();
    const qint64 ptID = LiitaPiirre(*d, m_jrID, itemData(valittu));
    if (ptID == 0)
        return; // the definition went away meanwhile
    m_lataa = true;
    rivi(lstAllPt, {ptID, valittu->text()});
    m_lataa = false;
    lstAllPt->setFocus();
    valitse(lstAllPt->count() - 1);
}

void frmJasenOminaisuudet::lstAllPt_Click()
{
    if (tallennaKesken()) {
        naytaValittu();
        return;
    }
    // The value that could not be stored stays on screen under its own attachment, so that
    // typing on does not move it to the row chosen.
    for (int r = 0; r < lstAllPt->count(); ++r) {
        if (itemData(lstAllPt->item(r)) == m_muokattuPt) {
            m_lataa = true;
            lstAllPt->setCurrentRow(r);
            m_lataa = false;
        }
    }
}

void frmJasenOminaisuudet::naytaValittu()
{
    arvot->TyhjennaArvot();
    QListWidgetItem *i = lstAllPt->currentItem();
    if (!i)
        return;
    auto d = tietue::AvaaKanta();
    const PiirreNakyma n = LuePiirre(*d, itemData(i));
    if (!n.loytyi)
        return;
    arvot->naytaKuvaus(n.kuvaus);
    if (n.maaritys)
        arvot->naytaArvot(n.arvot);
}

void frmJasenOminaisuudet::lstAllPi_Click()
{
    QListWidgetItem *i = lstAllPi->currentItem();
    if (!i)
        return;
    auto d = tietue::AvaaKanta();
    if (const auto m = LueMaaritys(*d, itemData(i)))
        arvot->naytaKuvaus(m->kuvaus);
}

void frmJasenOminaisuudet::poistaPiirre()
{
    if (!tallennaKesken())
        return;
    int seuraava = lstAllPt->currentRow();
    if (QListWidgetItem *i = lstAllPt->currentItem(); i && i->isSelected()) {
        if (Kysy(QStringLiteral("Poistetaanko valittu ominaisuus?"))) {
            auto d = tietue::AvaaKanta();
            PoistaLiitos(*d, itemData(i));
            m_lataa = true;
            delete lstAllPt->takeItem(lstAllPt->row(i));
            lstAllPt->setCurrentRow(-1);
            m_lataa = false;
            seuraava = -1;
        }
    }
    arvot->TyhjennaArvot();
    lstAllPt->setFocus();
    // The arrow key down: from no row to the first, otherwise one row on where there is one.
    if (lstAllPt->count() > 0)
        valitse(qMin(seuraava + 1, lstAllPt->count() - 1));
}

void frmJasenOminaisuudet::selaaPiirre()
{
    if (!tallennaKesken())
        return;
    if (lstAllPt->isHidden())
        palaaSelaukseen();
    lstAllPt->setFocus();
    if (lstAllPt->count() > 0)
        valitse(0);
    cPoistaPiirre->setEnabled(true);
}
