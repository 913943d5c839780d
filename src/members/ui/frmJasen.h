// The member register's working window: one member at a time, edited in place, with the name
// tree, the family, payment and attribute tabs and the register's menus.
#pragma once

#include "members/Jasen.h"
#include "platform/database.h"
#include "platform/recordset.h"

#include <QMainWindow>
#include <QVector>
#include <array>
#include <functional>
#include <memory>

class QAction;
class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListView;
class QListWidget;
class QMenu;
class QModelIndex;
class QPlainTextEdit;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTabWidget;
class QToolButton;
class QTreeView;
class NimipuuMalli;
class NimiListaMalli;
class frmJasenOminaisuudet;
namespace tietue {
enum class Siirto;
}

// Opens the member window, or brings the open one to the front.
void AvaaJasenrekisteri(QWidget *parent);
// The member window holds a member that the invoice runs would change: they refuse while it is open.
bool JasenrekisteriAuki();

struct JasenRaportti;

class frmJasen : public QMainWindow {
    Q_OBJECT

public:
    explicit frmJasen(QWidget *parent = nullptr);
    ~frmJasen() override;

    // Opens the database and fills the window. False when it cannot be used (the reason has
    // been shown); the window is then not to be shown.
    bool Lataa();

    // The member in view (during an add, the new member's reserved id); 0 when there is none.
    qint64 NykyinenId() const;
    // Puts the row in edit mode at the first change; the attribute page calls this as well.
    void AloitaMuokkaus();
    // Stores the pending attribute value, the pending family classes and a row being edited or
    // added, in that order. False when any of them could not be written (the reason has been
    // shown, and the row and the tabs keep what was typed): the command stops.
    bool TallennaKesken();
    db::Recordset *Data1() const { return m_data1.get(); }
    // The rows of the user's own reports in the report menu, one per stored definition; the
    // report editor calls this when it closes.
    void PaivitaMuokattavatRaportit();

    // ---- Controls, named and indexed as the register has always named them ----
    std::array<QLineEdit *, YhteystietoMaara> tYhteystiedot{};
    QCheckBox *chkJasenmaksu = nullptr;
    QCheckBox *chkEmailLasku = nullptr;
    QPushButton *cLisaaViiteTarkiste = nullptr;
    QPlainTextEdit *tMuistio = nullptr;
    QTabWidget *TabStr1 = nullptr;

    QTreeView *tvwNimet = nullptr;
    QPushButton *cAvaaKaikki = nullptr;
    QComboBox *cmbListaEhto = nullptr;

    QToolButton *cUusi = nullptr, *cTallenna = nullptr, *cPoista = nullptr, *cSelaa = nullptr, *cHaku = nullptr,
                *cNimiHaku = nullptr, *cKopio = nullptr, *cPeru = nullptr, *cEnsimmainen = nullptr,
                *cEdellinen = nullptr, *cSeuraava = nullptr, *cViimeinen = nullptr, *cEmail = nullptr, *cSulje = nullptr;

    QMenu *mTiedosto = nullptr, *mTietue = nullptr, *mOminaisuudet = nullptr, *mRaportit = nullptr, *mTyokalut = nullptr;
    QAction *mUusi = nullptr, *mTallenna = nullptr, *mPoista = nullptr, *mSelaa = nullptr, *mHaku = nullptr,
            *mNimihaku = nullptr, *mKopio = nullptr, *mPeru = nullptr, *mEnsimmainen = nullptr, *mEdellinen = nullptr,
            *mSeuraava = nullptr, *mViimeinen = nullptr, *mEmailValitulle = nullptr, *mSulje = nullptr;
    QAction *mKopioiYhteystiedot = nullptr, *mLiimaaLeikepoydalta = nullptr, *mMaksamattomienPoisto = nullptr,
            *mPostinumeroidenTarkistus = nullptr;
    QVector<QAction *> mMuokattavaRaportti; // row 0 is always there, hidden when there are no reports

    // Family tab
    QCheckBox *chkPerhLaskutettava = nullptr;
    QListWidget *lstFamily = nullptr;
    QListView *lstPersons = nullptr;
    QLineEdit *tPerheenPaa = nullptr;
    QPushButton *cLisaaPerhJas = nullptr, *cPoistaPerhJas = nullptr, *cSelaaPerhJas = nullptr,
                *cMuutaPerheenOsoitteet = nullptr;
    std::array<QCheckBox *, 8> chkPerheLuokka{};

    // Payment tab
    QListWidget *lstMaksut = nullptr;
    QLabel *lbljmhjmID = nullptr, *lblOtsake = nullptr, *lblErapaiva = nullptr, *lblLaskupaiva = nullptr,
           *lblLaskunumero = nullptr, *lblViitenumero = nullptr, *lblHinta = nullptr, *lblTeksti = nullptr,
           *lblPerhemaksu = nullptr, *lblOminaisuusmaksu = nullptr, *lblJasenmaksu = nullptr, *lblMaksettu = nullptr;
    QPushButton *cMaksetuksi = nullptr;

    // ---- Window state ----
    bool bPerheLuokkaMuuttunut = false;
    bool bEiPuunValintaa = false;
    bool bSiirtoKesken = false;
    int iValittuVali = 1;
    int iPerheRivi = -1;
    bool bPiirreMuuttunut() const;

    // ---- Commands ----
    void cUusi_Click();
    void cTallenna_Click();
    void cPoista_Click();
    void cSelaa_Click();
    void cHaku_Click();
    void cNimiHaku_Click();
    void cKopio_Click();
    void cPeru_Click();
    // First, previous, next or last: plain moves in the table's order, with a list condition
    // through the holders in name order.
    void Siirry(tietue::Siirto s);
    void cAvaaKaikki_Click();
    void cSulje_Click();
    void cLisaaViiteTarkiste_Click();
    void mKopioiYhteystiedot_Click();
    void mLiimaaLeikepoydalta_Click();
    void mMaksamattomienPoisto_Click();
    void mPostinumeroidenTarkistus_Click();
    // The bulk attribute dialogs; the tab, the count and the tree follow what they did.
    void mMoniliitos_Click();
    void mOminLisaysSP_Click();
    void mOminaisuudenPoisto_Click();
    void mOminaisuudenYhdistaminen_Click();
    void cmbListaEhto_LostFocus();

    void cLisaaPerhJas_Click();
    void cPoistaPerhJas_Click();
    void cSelaaPerhJas_Click();
    void cMuutaPerheenOsoitteet_Click();
    void lstPersons_Valitse();
    void cMaksetuksi_Click();

protected:
    // ---- The report menu (frmJasen_raportit.cpp) ----
    void mMaksuhistoriaJasenelle_Click();
    void mMaksuhistoriaRyhmalle_Click();
    void mRapPerheet_Click();
    void mMaksamattomatPerheetLuettelo_Click();
    void mMaksamattomatPerheetOsoitetarrat_Click();
    void mMaksaneetPerheetLuettelo_Click();
    void mMaksaneetPerheetOsoitetarrat_Click();
    void mRapRajausOminaisuudella_Click();
    void mRapPerhetarrat_Click();
    void TulostaJasenRaportti(const JasenRaportti &r);
    void AjaJasenRaportti(const JasenRaportti &r);
    // ---- end of the report menu ----
    void mMuokattavaRaportti_Click(int n); // frmJasen_muokattavat.cpp

    void closeEvent(QCloseEvent *e) override;
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    // Building (frmJasen_valikot.cpp, frmJasen_perustiedot.cpp, frmJasen_perhe.cpp …)
    void RakennaValikot();
    QWidget *RakennaPainikkeet();
    QWidget *RakennaPuuPaneeli();
    QWidget *RakennaPerustiedot();
    QWidget *RakennaMuistio();
    QWidget *RakennaPerhe();
    QWidget *RakennaMaksut();
    QAction *Komento(QMenu *menu, const char *nimi, const QString &teksti, void (frmJasen::*kasittelija)() = nullptr,
                     const QKeySequence &nappain = {}, const QString &vihje = {});
    QAction *Komento(QMenu *menu, const char *nimi, const QString &teksti, std::function<void()> toiminto);
    QToolButton *Painike(const char *nimi, QAction *komento);
    void KytkeKentat();

    // State (frmJasen.cpp)
    JasenLomake Lomake() const;
    void PaivitaKontrollit();
    void Siirretty();
    void PaivitaJasenmaara();
    void AsetaTyhjaTila(bool tyhja);
    bool OnTyhja() const { return m_tyhja; }
    bool KirjoitaRivi(bool hiljaa);
    bool TallennaValilehdet();

    // Tree and list condition (frmJasen_puu.cpp)
    // The tree of the list condition's members; at opening also the family tab's list of all.
    void RakennaNimipuu(bool henkilotMyos = false);
    void TaytaListaehto();
    qint64 ListaehdonPiirre() const;
    QVector<qint64> ListanJasenet();
    void ListaSiirto(int kohde);
    void SiirryListaehtoon();
    void PuuValinta(const QModelIndex &i);
    bool SiirryJaseneen(qint64 jrId);
    // The end of a search: the found member into view, or the message and the row kept.
    void SiirryLoydettyyn(qint64 jrId, const QString &eiLoydy);

    // Basic fields (frmJasen_perustiedot.cpp)
    void KenttaPoistui(int i);
    bool LiittymaNappain(QKeyEvent *k);

    // Family tab (frmJasen_perhe.cpp)
    void LataaPerhe();
    void lstFamily_Click();
    void chkPerheLuokka_Click(int i);
    void chkPerhLaskutettava_Click();
    bool TallennaPerheLuokat();
    void NaytaPerheLista();

    // Payment tab (frmJasen_maksut.cpp)
    void LataaMaksut();
    void lstMaksut_Click();

    // Attribute page (frmJasen_ominaisuudet.cpp)
    frmJasenOminaisuudet *LuoOminaisuusSivu();
    void NaytaOminaisuudet(qint64 jrId);
    void PeruPiirre();
    void PiirteenFokusListaan();
    bool TallennaPiirreArvo();
    void AjaJoukkotoiminto(void (*avaa)(QWidget *));

    std::unique_ptr<db::Database> m_db;
    std::unique_ptr<db::Recordset> m_data1;
    NimipuuMalli *m_puu = nullptr;
    NimiListaMalli *m_henkilot = nullptr;
    QStackedWidget *m_perheLista = nullptr;
    QSplitter *m_jako = nullptr;
    QVector<QAction *> m_komennot;
    frmJasenOminaisuudet *m_ominaisuusSivu = nullptr;
    QVector<QAction *> m_eiKaytossa; // disabled until their windows exist
    bool m_lataa = false;            // controls are being filled from the row
    JasenLomake m_naytetty;          // the row as the controls showed it: a save writes what differs
    bool m_tyhja = false;
    struct ListanJasenet {
        qint64 piirre = -1, muutokset = -1, versio = -1;
        QVector<qint64> idt;
    } m_lista;
};
