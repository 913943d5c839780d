// "Vonari - Asetukset": every setting of the club and of the workstation, on tabs.
#pragma once

#include <QDialog>
#include <QHash>
#include <QVector>

struct AsetuksetSyote;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QAction;
class QGridLayout;

class frmAsetukset : public QDialog {
    Q_OBJECT
public:
    explicit frmAsetukset(QWidget *parent = nullptr);

    // Set by any change of a field, cleared by the load and by a save.
    bool muuttunut() const { return m_muuttunut; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    // Esc and the close box ask as cSulje does.
    void reject() override;
    void done(int result) override;

private:
    // One builder per tab (each in its own file), the fill from the globals and the read back.
    QWidget *teeSeuraSivu();
    QWidget *teeInternetSivu();
    QWidget *teeOhjelmaSivu();
    QWidget *teeMuistutusSivu();
    QWidget *teeTulostusSivu();
    QWidget *teeLaskupohjaSivu();
    void taytaSeura();
    void taytaInternet();
    void taytaOhjelma();
    void taytaTulostus();
    void lueSeura(AsetuksetSyote &s) const;
    void lueInternet(AsetuksetSyote &s) const;
    void naytaOletusportti();
    void lueOhjelma(AsetuksetSyote &s) const;
    void lueTulostus(AsetuksetSyote &s) const;

    QLineEdit *tekstikentta(const QString &name, int maxLength = 255);
    QLineEdit *numerokentta(const QString &name, const QString &viesti, int maxLength = 10);
    QPushButton *valintanappi(const QString &name);
    QPlainTextEdit *muistutusteksti(const QString &name);
    static void lisaaRivi(QGridLayout *grid, int row, const QString &caption, QWidget *field,
                          QWidget *beside = nullptr);
    void seuraaMuutoksia();
    void tarkistaNumero(QLineEdit *t);
    void poistaRivinvaihdot(QPlainTextEdit *t);
    QString valitseTiedosto(const QString &otsikonLoppu, const QString &suodatin, const QString &nykyinen);

    bool tallenna();
    void kohdista(const QString &kentta);
    void paivitaPaaikkunanOtsikko();

    void cTallenna_Click();
    void cPeru_Click();
    void cSulje_Click();
    void cMXQuery_Click();
    void cTestaaYhteys_Click();
    void cTietokantavalita_Click();
    void mLisaasetukset_Click();
    void mCreateNewDatabase_Click();

    QTabWidget *TabStrip1 = nullptr;

    // Club data
    QLineEdit *tNimi = nullptr, *tHenkilo = nullptr, *tOsoite = nullptr, *tPostinumero = nullptr,
              *tPostitoimipaikka = nullptr, *tPuhelin = nullptr, *tFax = nullptr, *tSeuranEmail = nullptr,
              *tWWW = nullptr, *tPankkiyhteys1 = nullptr, *tPankkiyhteys2 = nullptr, *tYTunnus = nullptr;
    // Internet
    QVector<QRadioButton *> optEmailSystem;
    QLineEdit *tEmail = nullptr, *tSMTP = nullptr, *tEmailPerMin = nullptr;
    QPushButton *cMXQuery = nullptr;
    QLineEdit *tSMTPPortti = nullptr, *tSMTPKayttaja = nullptr, *tSMTPSalasana = nullptr, *tSMTPVarmenne = nullptr;
    QComboBox *cmbSMTPSuojaus = nullptr;
    QPushButton *cSMTPVarmennevalinta = nullptr, *cTestaaYhteys = nullptr;
    // Program
    QLineEdit *tTietokanta = nullptr, *tVarmistus = nullptr, *tLaskunumero = nullptr, *tJasennumero = nullptr,
              *tVarmuuskopioPv = nullptr, *tSalasana = nullptr, *tEmailLaskupohja = nullptr,
              *tEmailKarhupohja = nullptr;
    QCheckBox *chkMoniseuratuki = nullptr, *chkJasennumero = nullptr, *chkMuistutaVarmistuksesta = nullptr;
    QPushButton *cTietokantavalita = nullptr, *cLaskupohjavalinta = nullptr, *cKarhupohjavalinta = nullptr;
    // Reminders
    QLineEdit *tMuistutuskulut = nullptr, *tViivastysKorko = nullptr, *tMuistutusOtsake = nullptr;
    QPlainTextEdit *tMuistutusAlkuteksti = nullptr, *tMuistutusLopputeksti = nullptr;
    // Printing
    QLineEdit *tTulostusEra = nullptr, *tMargVas = nullptr, *tMargOik = nullptr, *tMargYla = nullptr,
              *tMargAla = nullptr;
    QComboBox *cmbFonts = nullptr, *cmbFonttiKoko = nullptr;
    // Invoice layouts
    QCheckBox *chkLaskupohjaKaytossa = nullptr, *chkLaskupohjaHKaytossa = nullptr;
    QLineEdit *tLaskupohjaTiedosto = nullptr, *tLaskupohjaHTiedosto = nullptr;
    QPushButton *cValitseLaskupohjatiedosto = nullptr, *cValitseLaskupohjatiedostoH = nullptr;

    QPushButton *cTallenna = nullptr, *cPeru = nullptr, *cSulje = nullptr;
    QAction *mLisaasetukset = nullptr, *mCreateNewDatabase = nullptr;

    // The number fields and the message each gives for a text that is no number.
    QHash<QLineEdit *, QString> m_numeroviestit;
    bool m_muuttunut = false;
};
