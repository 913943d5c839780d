// The main window: a small fixed bar of large buttons and the menus from which everything opens.
#pragma once

#include <QMainWindow>

class QAction;
class QMenu;
class QToolButton;

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);

    // Prepares the report engine for a new print job: every data slot on the database in use,
    // no selection, formulas or sort fields, the settings' margins.
    void ResetReportFormulas();

    QToolButton *cJasenrekisteri;
    QToolButton *cJasenmaksut;
    QToolButton *cLuoJasenmaksut;
    QToolButton *cOminaisuudet;
    QToolButton *cAboutNorvik;
    QToolButton *cSulje;

    QMenu *mTiedosto;
    QAction *mJasenrekisteri;
    QAction *mJasenmaksut;
    QAction *mJasenmaksujenluonti;
    QAction *mPiirteet;
    QAction *mIkajakauma;
    QAction *mAsetukset;
    QAction *mEuroMuunnos;
    QAction *mPalautaEuroMuunnos;
    QAction *mVarmistus;
    QAction *mPalautus;
    QAction *mLopetus;

    QMenu *mTietokanta;
    QAction *mPerustaTietokanta;
    QAction *mMuokkaaTietokantaa;
    QAction *mSuoritaSQLLause;
    QAction *mImportData;
    QAction *mService;
    QAction *mTietoja;

signals:
    // The program is ending: the window closed, or a new database awaits the next start.
    void ohjelmaLoppuu();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void avaaAsetukset();
    void luoNapit();
    void luoValikot();
    QAction *lisaa(QMenu *valikko, const char *nimi, const QString &teksti, bool kaytossa = true);
    void erotin(QMenu *valikko, const char *nimi);
    void avaaTietoja();
    void teeVarmuuskopio();
    void palauta();
    void perustaTietokanta();
};
