#include "members/ui/frmJasen.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/Tietueikkuna.h"
#include "platform/arvot.h"
#include "core/ui/uihelpers.h"
#include "members/TyhjatRivit.h"
#include "members/ui/NimipuuMalli.h"
#include "members/ui/frmJasenOminaisuudet.h"
#include "platform/dialogs.h"
#include "reports/Tulostus.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

bool JasenrekisteriAuki()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        if (qobject_cast<frmJasen *>(w) && w->isVisible())
            return true;
    return false;
}

void AvaaJasenrekisteri(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<frmJasen>(parent);
        return w->Lataa() ? w.release() : nullptr;
    });
}

frmJasen::frmJasen(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmJasen"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::Window);
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Jäsenrekisteri"));

    RakennaValikot();
    auto *keskus = new QWidget(this);
    auto *pysty = new QVBoxLayout(keskus);
    pysty->addWidget(RakennaPainikkeet());

    TabStr1 = new QTabWidget(keskus);
    TabStr1->setObjectName(QStringLiteral("TabStr1"));
    TabStr1->addTab(RakennaPerustiedot(), QStringLiteral("Perustiedot"));
    TabStr1->addTab(RakennaMuistio(), QStringLiteral("Muistio"));
    TabStr1->addTab(RakennaPerhe(), QStringLiteral("Perhe"));
    TabStr1->addTab(RakennaMaksut(), QStringLiteral("Maksut"));
    m_ominaisuusSivu = LuoOminaisuusSivu();
    TabStr1->addTab(m_ominaisuusSivu, QStringLiteral("Ominaisuudet"));
    connect(TabStr1, &QTabWidget::currentChanged, this, [this](int i) { iValittuVali = i + 1; });

    m_jako = new QSplitter(Qt::Horizontal, keskus);
    m_jako->addWidget(RakennaPuuPaneeli());
    m_jako->addWidget(TabStr1);
    m_jako->setStretchFactor(0, 0);
    m_jako->setStretchFactor(1, 1);
    m_jako->setSizes({240, 680});
    pysty->addWidget(m_jako, 1);
    setCentralWidget(keskus);
    KytkeKentat();

    // The boxes' select-all on entry and rules on leaving, and Enter in the tree and the lists.
    const auto lapset = findChildren<QWidget *>();
    for (QWidget *w : lapset)
        w->installEventFilter(this);
    new tietue::EditorinNappaimet(this);
    resize(920, 600);
}

frmJasen::~frmJasen()
{
    // The children lose their focus while they are torn down, after this window's state is gone.
    const auto lapset = findChildren<QWidget *>();
    for (QWidget *w : lapset)
        w->removeEventFilter(this);
}

bool frmJasen::Lataa()
{
    if (!tietue::TietokantaAsetettu())
        return false;
    ValmisteleRaporttikone(QStringLiteral("jrjasmak.rpt"));
    try {
        m_db = tietue::AvaaKanta();
        try {
            PoistaTyhjatRivit(*m_db);
        } catch (const db::DbError &) {
            // A file another program is writing is still browsed; its blank rows wait for the next opening.
        }
        m_data1 = db::Recordset::openTable(*m_db, QStringLiteral("jr"));
        LataaIkkunanPaikka(this);
        TaytaListaehto();
        m_ominaisuusSivu->paivitaPiirteet();
        PaivitaJasenmaara();
        RakennaNimipuu(true);
        Siirretty();
    } catch (const db::DbError &e) {
        IlmoitaVirhe(e.message());
        m_data1.reset();
        m_db.reset();
        return false;
    }
    PaivitaMuokattavatRaportit();
    if (m_data1->recordCount() == 0) {
        AsetaTyhjaTila(true);
        Ilmoita(QStringLiteral("Jäsenrekisteri on vielä tyhjä.\nLisää uusi jäsen klikkaamalla Uusi painiketta."));
    }
    return true;
}

qint64 frmJasen::NykyinenId() const
{
    if (!m_data1)
        return 0;
    if (m_data1->editMode() == db::Recordset::EditMode::None && m_data1->absolutePosition() < 0)
        return 0;
    return NullLong(m_data1->value(QStringLiteral("jrID")));
}

JasenLomake frmJasen::Lomake() const
{
    JasenLomake l;
    for (int i = 0; i < YhteystietoMaara; ++i)
        l.tYhteystiedot[i] = tYhteystiedot[i]->text();
    l.chkJasenmaksu = chkJasenmaksu->isChecked();
    l.chkEmailLasku = chkEmailLasku->isChecked();
    l.chkPerhLaskutettava = chkPerhLaskutettava->isChecked();
    l.tMuistio = tMuistio->toPlainText();
    return l;
}

// The bound controls show the current row, or nothing when there is no row.
void frmJasen::PaivitaKontrollit()
{
    JasenLomake l;
    if (m_data1 && (m_data1->editMode() != db::Recordset::EditMode::None || m_data1->absolutePosition() >= 0))
        l = LueLomake(*m_data1);
    m_lataa = true;
    for (int i = 0; i < YhteystietoMaara; ++i)
        tYhteystiedot[i]->setText(l.tYhteystiedot[i]);
    chkJasenmaksu->setChecked(l.chkJasenmaksu);
    chkEmailLasku->setChecked(l.chkEmailLasku);
    chkPerhLaskutettava->setChecked(l.chkPerhLaskutettava);
    tMuistio->setPlainText(l.tMuistio);
    m_lataa = false;
    m_naytetty = l;
}

// A new current row: the controls and every tab follow it.
void frmJasen::Siirretty()
{
    const bool ennen = bSiirtoKesken;
    bSiirtoKesken = true;
    PaivitaKontrollit();
    NaytaOminaisuudet(NykyinenId());
    LataaPerhe();
    LataaMaksut();
    bSiirtoKesken = ennen;
}

void frmJasen::PaivitaJasenmaara()
{
    const int maara = JasenMaara(*m_db, ListaehdonPiirre());
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Jäsenrekisteri - ") + QString::number(maara));
}

void frmJasen::AloitaMuokkaus()
{
    if (m_lataa || !m_data1 || m_data1->editMode() != db::Recordset::EditMode::None || m_data1->absolutePosition() < 0)
        return;
    tietue::Suojattu([this] { m_data1->edit(); });
}

// Writes a row in edit or add mode. A taken member number is told (unless `hiljaa`), the box
// emptied, and the row stays unsaved; other failures are told and keep the edit as it is.
bool frmJasen::KirjoitaRivi(bool hiljaa)
{
    if (m_data1->editMode() == db::Recordset::EditMode::None)
        return true;
    const bool lisays = m_data1->editMode() == db::Recordset::EditMode::AddNew;
    try {
        if (TallennaRivi(*m_db, *m_data1, Lomake(), m_naytetty) == Tallennus::NumeroVarattu) {
            if (!hiljaa)
                Ilmoita(JasennumeroVarattuViesti(tYhteystiedot[iJasennumero]->text()));
            tYhteystiedot[iJasennumero]->clear();
            return false;
        }
    } catch (const db::DbError &e) {
        if (!hiljaa)
            IlmoitaVirhe(e.message());
        return false;
    }
    // An added row goes to the end of the set: moving there makes it the one in view.
    if (lisays)
        m_data1->moveLast();
    return true;
}

// The attribute value and the family classes: a failure of either has been shown, and what the
// user typed stays for another try.
bool frmJasen::TallennaValilehdet()
{
    if (bPiirreMuuttunut() && !TallennaPiirreArvo())
        return false;
    return !bPerheLuokkaMuuttunut || TallennaPerheLuokat();
}

bool frmJasen::TallennaKesken()
{
    if (!m_data1)
        return true;
    if (!TallennaValilehdet())
        return false;
    if (m_data1->editMode() == db::Recordset::EditMode::None)
        return true;
    if (!KirjoitaRivi(false))
        return false;
    tietue::Suojattu([this] {
        PaivitaKontrollit();
        PaivitaJasenmaara();
    });
    return true;
}

// An empty register leaves only the ways to add a member and to close.
void frmJasen::AsetaTyhjaTila(bool tyhja)
{
    m_tyhja = tyhja;
    m_jako->setEnabled(!tyhja);
    for (QAction *a : std::as_const(m_komennot))
        a->setEnabled(!m_eiKaytossa.contains(a) && (!tyhja || a == mUusi || a == mSulje));
    for (QMenu *m : {mOminaisuudet, mRaportit, mTyokalut})
        m->menuAction()->setEnabled(!tyhja);
}

void frmJasen::closeEvent(QCloseEvent *e)
{
    if (m_data1 && !TallennaKesken()) {
        e->ignore();
        return;
    }
    TallennaIkkunanPaikka(this);
    e->accept();
}

bool frmJasen::eventFilter(QObject *o, QEvent *e)
{
    if (e->type() == QEvent::KeyPress) {
        auto *k = static_cast<QKeyEvent *>(e);
        const bool enter = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        if (o == tYhteystiedot[iLiittyma] && LiittymaNappain(k))
            return true;
        if (enter && o == tvwNimet) {
            tietue::Suojattu([this] { PuuValinta(tvwNimet->currentIndex()); });
            return true;
        }
        if (enter && o == lstPersons) {
            tietue::Suojattu([this] { lstPersons_Valitse(); });
            return true;
        }
        return false;
    }
    if (e->type() == QEvent::FocusIn) {
        for (QLineEdit *t : tYhteystiedot)
            if (o == t)
                MaalaaTeksti(t);
        return false;
    }
    if (e->type() == QEvent::FocusOut) {
        // Opening a drop-down or turning to another window leaves nothing.
        const Qt::FocusReason syy = static_cast<QFocusEvent *>(e)->reason();
        if (syy == Qt::PopupFocusReason || syy == Qt::ActiveWindowFocusReason)
            return false;
        for (int i = 0; i < YhteystietoMaara; ++i)
            if (o == tYhteystiedot[i])
                KenttaPoistui(i);
        if (o == cmbListaEhto)
            tietue::Suojattu([this] { cmbListaEhto_LostFocus(); });
    }
    return false;
}
