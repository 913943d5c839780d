// The plain invoice run: one invoice to each chosen person with the same header and up to four
// rows. From here the open batch is also moved to history or deleted.
#pragma once

#include "invoicing/Laskulomake.h"

#include <QMainWindow>
#include <QVector>
#include <array>

class QAction;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QToolButton;
class Nimimalli;
namespace db {
class Database;
}

class frmMaksujenLuonti : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMaksujenLuonti(QWidget *parent = nullptr);
    // Fills the lists; false (after the message) when the database cannot be used.
    bool Lataa();

    // The controls, named as the program has always named them.
    QComboBox *cmbNimet, *cmbMaksunOtsake, *cmbTilinumerot;
    QLineEdit *tLaskunPaiva, *tLaskunErapaiva, *tAiheTeksti, *tSumma;
    QPlainTextEdit *tLisatietoja;
    std::array<QCheckBox *, 4> chkRivi;
    std::array<QLineEdit *, 4> tRiviTeksti, tRiviSumma;
    QCheckBox *chkJasenmaksu, *chkHenkKohtViite, *chkEiViitetta, *chkEiLoppusummaa, *chkEiPerheellisille, *chkMuille,
        *chkVainValittuTilinumero;
    QProgressBar *ProgressBar1;
    QPushButton *cKeskeyta;
    QToolButton *cYksittain, *cHistoriaan, *cPoista, *cPerheille, *cOminaisuudella, *cTulosta, *cEmail,
        *cEmailPreview, *cSulje;
    QMenu *mLaskupohjat;

    // What the user has typed, as the run reads it.
    MaksujenLuontiLomake lomake() const;

protected:
    bool eventFilter(QObject *kohde, QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;

private:
    QWidget *rakennaYlatiedot();
    QWidget *rakennaRivit();
    QWidget *rakennaPainikkeet();
    void rakennaValikot();
    void yhdista();

    void paivitaSumma();
    void riviValittu(int i);
    void paivaLahtiessa(QLineEdit *kentta);
    void nimiLahtiessa();
    void otsakeLahtiessa();
    void poistaOtsake();
    void taytaNimet(db::Database &d);
    void taytaOtsakkeet();
    void kohdista(const QString &kentta);

    void lisaa();
    void historiaan();
    void poista();
    void tulostaLista(const QString &tiedosto, const QString &otsikko);

    Nimimalli *m_nimet = nullptr;
    bool m_ajossa = false; // a run's transaction is open: no second run, no closing
    QList<QAction *> m_komennot;
    QVector<QWidget *> m_ajonAikanaPois;
};

// Opens the window once; refused when no database is set.
void AvaaLaskutus(QWidget *parent);
