// Laskupohjat: the invoice templates, one at a time, with the tree of their names. Every change
// in a control goes straight to the template object; the object keeps its changes when the user
// moves on or closes the window, and only cPeru drops them.
#pragma once

#include <QDialog>
#include <QVector>
#include <array>
#include <functional>
#include <memory>

class QAction;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;
class QStackedWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;
class cLaskupohja;

namespace tietue {
enum class Siirto;
}

class frmLaskupohjat : public QDialog {
    Q_OBJECT
public:
    explicit frmLaskupohjat(QWidget *parent = nullptr);
    ~frmLaskupohjat() override;
    // The database check, the lists of accounts and attributes, the tree and the first template.
    // False after the message when the window cannot be used; it is then not to be shown.
    bool lataa();
    // The template on screen.
    cLaskupohja &pohja() const { return *m_pohja; }

    QToolButton *cUusi, *cTallenna, *cPoista, *cSelaa, *cPeru;
    QToolButton *cEnsimmainen, *cEdellinen, *cSeuraava, *cViimeinen, *cSulje;
    QTreeWidget *tvwLista;

    QLineEdit *tNimi, *tLaskunOtsake, *tErapaiva, *tTilisiirronTeksti;
    QComboBox *cmbPaivamaara, *cmbTilinumerot;
    QCheckBox *chkJasenmaksu, *chkHenkilokohtainenViite, *chkIlmanViitetta, *chkIlmanLoppusummaa;
    QCheckBox *chkVainValittuTilinumero;
    QPlainTextEdit *tLisatietoja;
    std::array<QRadioButton *, 3> optLaskutyyppi{};
    QStackedWidget *frameLaskutyypit;
    std::array<QWidget *, 3> frameLaskutyyppi{};

    // Plain rows 0-3.
    QVector<QCheckBox *> chkPerusPaalla;
    QVector<QLineEdit *> tPerusAiheteksti, tPerusHinta;
    // Family rows 0-10: the family, the classes, the two free rows.
    QVector<QCheckBox *> chkPerhePaalla, chkPerheNimet, chkPerheNollat;
    QVector<QLineEdit *> tPerheAhinta, tPerheAiheTeksti;
    // Attribute rows 0-3.
    QVector<QComboBox *> cmbOminaisuus;
    QVector<QCheckBox *> chkOmLkm, chkOmHinta, chkOmNollat;
    QVector<QLineEdit *> tOmAHinta, tOmLkmMaara, tOmMinimi, tOmAiheTeksti;

public slots:
    // Closing keeps the changes: they are saved first, and a failed save keeps the window open.
    void reject() override;

private:
    void rakenna();
    void asetaSarkainjarjestys();
    QWidget *rakennaYlatiedot();
    QWidget *rakennaPerusrivit();
    QWidget *rakennaPerherivit();
    QWidget *rakennaOminaisuusrivit();
    QToolButton *komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                         std::function<void()> toiminto);
    // Connects an edit to the template: `kirjoita` runs when the user changes the control.
    void kun(QLineEdit *t, std::function<void(const QString &)> kirjoita);
    void kun(QCheckBox *c, std::function<void(bool)> kirjoita);

    // Fills the controls from the template; `tarkistaTili` tells of an account not found (when a
    // template comes to view, not when it is shown again after a save).
    void nayta(bool tarkistaTili = false);
    void naytaYlatiedot();
    void naytaRivit();
    void naytaTili(bool tarkista);
    void naytaLaji(int laskutyyppi);
    void paivitaPainikkeet();
    void rakennaPuu();
    void valitseSolmu();
    void nimiMuuttui();

    void uusi();
    void tallenna();
    void poista();
    void peru();
    void siirry(tietue::Siirto s);
    void puustaValittu(QTreeWidgetItem *s);
    bool tallennaKesken();

    std::unique_ptr<cLaskupohja> m_pohja;
    QList<QAction *> m_komennot;
    bool m_naytetaan = false; // the window itself is filling its controls
};

// Opens the template window as a modal dialog. Nothing is opened when the database is not set
// (the message has been shown).
void AvaaLaskupohjat(QWidget *parent);
