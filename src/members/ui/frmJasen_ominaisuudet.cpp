// The "Ominaisuudet" page and the bulk attribute commands. A change of a value on the page puts
// the member row in edit mode, as any edit of the member does, and a store the page makes on its
// own is followed by the window's pending family store.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "members/ui/ArvoPaneeli.h"
#include "members/ui/frmJasenOminaisuudet.h"
#include "members/ui/frmMoniliitos.h"
#include "members/ui/frmOminLisaysSP.h"
#include "members/ui/frmOminaisuudenPoisto.h"
#include "members/ui/frmOminaisuudenYhdistaminen.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>

frmJasenOminaisuudet *frmJasen::LuoOminaisuusSivu()
{
    auto *s = new frmJasenOminaisuudet;
    connect(s, &frmJasenOminaisuudet::muutettu, this, [this] { AloitaMuokkaus(); });
    connect(s, &frmJasenOminaisuudet::perheTallennettava, this, [this] {
        if (bPerheLuokkaMuuttunut)
            TallennaPerheLuokat();
    });
    // Definitions made in the definitions window meanwhile are offered when the page is turned to.
    connect(TabStr1, &QTabWidget::currentChanged, this, [this, s](int i) {
        if (TabStr1->widget(i) == s && s->lstAllPi->isHidden())
            s->paivitaPiirteet();
    });
    return s;
}

// Showing another attachment first disables the value boxes. Qt would pass the focus of a
// disabled box on down the chain, to the list condition, whose leaving moves the window to the
// first member: the focus goes to the page's list instead.
void frmJasen::PiirteenFokusListaan()
{
    QWidget *f = QApplication::focusWidget();
    if (!f || !m_ominaisuusSivu->arvot->isAncestorOf(f))
        return;
    QListWidget *lista = m_ominaisuusSivu->lstAllPt->isHidden() ? m_ominaisuusSivu->lstAllPi : m_ominaisuusSivu->lstAllPt;
    lista->setFocus();
}

void frmJasen::NaytaOminaisuudet(qint64 jrId)
{
    PiirteenFokusListaan();
    m_ominaisuusSivu->naytaJasen(jrId);
}

void frmJasen::PeruPiirre()
{
    PiirteenFokusListaan();
    m_ominaisuusSivu->peruPiirre();
}

bool frmJasen::bPiirreMuuttunut() const { return m_ominaisuusSivu->piirreMuuttunut(); }

bool frmJasen::TallennaPiirreArvo() { return m_ominaisuusSivu->tallennaPiirre(); }

// The dialogs change attachments of many members at once: what is pending is stored first, and
// afterwards the page, the list condition's count and tree, and the definitions are read again.
void frmJasen::AjaJoukkotoiminto(void (*avaa)(QWidget *))
{
    if (!TallennaKesken())
        return;
    avaa(this);
    const qint64 ehto = ListaehdonPiirre();
    const bool puu = bEiPuunValintaa;
    bEiPuunValintaa = true;
    // A merged attribute is gone: the list condition falls back to all when it was that one.
    TaytaListaehto();
    const int i = cmbListaEhto->findData(ehto);
    cmbListaEhto->setCurrentIndex(i < 0 ? 0 : i);
    if (ehto > 0)
        RakennaNimipuu();
    bEiPuunValintaa = puu;
    PaivitaJasenmaara();
    m_ominaisuusSivu->paivitaPiirteet();
    NaytaOminaisuudet(NykyinenId());
}

void frmJasen::mMoniliitos_Click() { AjaJoukkotoiminto(&AvaaMoniliitos); }
void frmJasen::mOminLisaysSP_Click() { AjaJoukkotoiminto(&AvaaOminLisaysSP); }
void frmJasen::mOminaisuudenPoisto_Click() { AjaJoukkotoiminto(&AvaaOminaisuudenPoisto); }
void frmJasen::mOminaisuudenYhdistaminen_Click() { AjaJoukkotoiminto(&AvaaOminaisuudenYhdistaminen); }
