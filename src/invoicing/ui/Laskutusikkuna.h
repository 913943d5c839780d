// What the four invoice windows share: the header of the invoice, whom to invoice, the additional
// text, the progress bar with "Keskeytä", the buttons and menus, and the flows on the open batch
// (the move to history, the delete, the lists). A window adds its rows and its run.
#pragma once

#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Laskuera.h"
#include "members/Piirteet.h"

#include <QMainWindow>
#include <QVector>

class QAction;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QToolButton;
class ListaMalli;

class Laskutusikkuna : public QMainWindow {
    Q_OBJECT
public:
    // Fills the lists; false (after the message) when the database cannot be used.
    bool Lataa();

    // The controls, named as the program has always named them.
    QComboBox *cmbNimet, *cmbMaksunOtsake, *cmbTilinumerot;
    QLineEdit *tLaskunPaiva, *tLaskunErapaiva, *tTilisiirronTeksti;
    QPlainTextEdit *tLisatietoja;
    QCheckBox *chkJasenmaksu, *chkHenkKohtViite, *chkEiViitetta, *chkEiLoppusummaa, *chkMuille, *chkVainValittuTilinumero;
    QCheckBox *chkEiPerheellisille = nullptr; // the plain runs only
    QProgressBar *ProgressBar1;
    QPushButton *cKeskeyta;
    QToolButton *cYksittain, *cHistoriaan, *cPoista, *cPerheille, *cOminaisuudella, *cTulosta, *cEmail,
        *cEmailPreview, *cSulje;
    QMenu *mLaskut, *mLaskupohjat = nullptr;

protected:
    struct Asetelma {
        const char *nimi;         // the window's object name
        QString otsikko;          // after "Vonari - "
        Laskuikkuna laji;         // decides the history rows' kind flags and the delete's rules
        QString nimiOtsikko;      // the caption of the name box
        bool perheruutu = true;   // "Ei perheeseen kuuluville"
        bool listat = true;       // continuing from a number and the lists of added invoices
        bool laskupohjat = true;  // the template menu
        bool rivitAlle = false;   // a wide row panel goes under the header
        // The bank-transfer text's name: the family and attribute windows use tAiheTeksti for rows.
        const char *tilisiirtoKentta = "tAiheTeksti";
    };
    Laskutusikkuna(QWidget *parent, Asetelma asetelma);
    // Builds the window; a derived window calls it at the end of its constructor.
    void rakenna();

    virtual QWidget *rakennaRivit() = 0;
    // The window's run with what the user typed.
    virtual Laskutustulos aja(const Ajo &ajo, bool jasenikkunaAuki) = 0;
    // The entries of the name box.
    virtual QVector<ListaRivi> nimet(db::Database &d);
    // After the lists are filled: the window's own lists and starting state.
    virtual void lataaRivit(db::Database &) {}
    // The template at this place of the menu filled into the window.
    virtual void kaytaPohjaa(int) {}

    void kirjoitaYlatiedot(const LaskunYlatiedot &y);

    LaskunYlatiedot ylatiedot() const;
    LaskunSaajat saajat() const;
    // Puts the focus in the named control, as a refused check does.
    void kohdista(const QString &nimi);

    bool eventFilter(QObject *kohde, QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;

    Asetelma m_asetelma;

private:
    QWidget *rakennaYlatiedot();
    QWidget *rakennaPainikkeet();
    void rakennaValikot();
    void yhdista();

    void paivaLahtiessa(QLineEdit *kentta);
    void nimiLahtiessa();
    void otsakeLahtiessa();
    void poistaOtsake();
    void taytaNimet(db::Database &d);
    void taytaOtsakkeet();

    void lisaa();
    void avaaToinen(Laskuikkuna laji);
    void historiaan();
    void poista();
    // Prints the open batch; `numerosta` asks where an interrupted print goes on.
    void tulosta(bool numerosta);
    // Sends the open batch's invoices by e-mail to the chosen members who take them.
    void lahetaSahkopostilla();
    void tulostaLista(const QString &tiedosto, const QString &otsikko);

    ListaMalli *m_nimet = nullptr;
    bool m_ajossa = false; // a run's transaction is open: no second run, no closing
    QList<QAction *> m_komennot;
    QVector<QWidget *> m_ajonAikanaPois;
};
