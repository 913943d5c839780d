// Ominaisuudet: the attribute definitions, one at a time, with the tree of names, the defaults
// of the four value types, and the clean-up of attachments left without a definition.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tietue {
enum class Siirto;
}
namespace db {
class Database;
class Recordset;
}

class frmPiirre : public QWidget {
    Q_OBJECT
public:
    explicit frmPiirre(QWidget *parent = nullptr);
    ~frmPiirre() override;
    // Opens the definitions. False when the database could not be opened (the message has been
    // shown); the window is then not to be shown.
    bool lataa();

    QToolButton *cUusi, *cTallenna, *cPoista, *cSelaa, *cPeru;
    QToolButton *cEnsimmainen, *cEdellinen, *cSeuraava, *cViimeinen, *cSulje;
    QTreeWidget *tvwPiirteet;
    QLineEdit *tNimi, *tKuvaus, *tDate, *tLong, *tCurrency;
    QPlainTextEdit *tMemo;
    QCheckBox *chkDate, *chkLong, *chkCurrency, *chkMemo;
    QAction *mSiivoaVanhatOminaisuudet, *mRapLuettelo;

protected:
    void closeEvent(QCloseEvent *e) override;

private:
    void rakenna();
    QToolButton *komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                         std::function<void()> toiminto);
    void uusi();
    void tallenna();
    void poista();
    void selaa();
    void peru();
    void siirry(tietue::Siirto s);
    void puustaValittu(QTreeWidgetItem *solmu);
    void siivoa();
    void tulostaLuettelo();
    void nimiMuuttui(const QString &teksti);
    void valintaMuuttui(int tyyppi, bool paalla);

    bool onRivi() const;
    void naytaRivi();
    void naytaNykyinen();
    void tyhjennaKentat();
    void asetaKaytossa(bool kaytossa);
    void aloitaMuokkaus();
    bool kirjoitaKesken(bool *kirjoitettu = nullptr);
    void paivitaMaara();
    void rakennaPuu();

    std::unique_ptr<db::Database> m_db;
    std::unique_ptr<db::Recordset> Data1;
    QList<QAction *> m_komennot;
    bool m_muutettu = false; // a box of the row was changed since it was shown
    bool m_lataa = false;    // the window itself is filling its controls
};

// Opens the attribute definitions window from the main window, or brings it forward.
void AvaaOminaisuudet(QWidget *parent);
