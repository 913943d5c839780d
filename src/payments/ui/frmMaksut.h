// "Vonari - Maksukirja": an invoice of the history fetched by its reference, marked paid, printed
// again; copies of unpaid invoices, the billing and reference lists, deletions of history rows,
// and under the invoice the payments the ledger holds for it with what is still open.
#pragma once

#include <QMainWindow>
#include <QVector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;
class QTreeWidget;
struct HistorianLasku;
namespace db { class Database; }

class frmMaksut : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMaksut(QWidget *parent = nullptr);

    QLineEdit *tViitenumero;
    QLabel *lblNimi, *lblOtsake, *lblErapaiva, *lblLaskupaiva, *lblLaskunumero, *lblViitenumero, *lblHinta, *lblTeksti,
        *lblMaksettu, *lblPerhemaksu, *lblOminaisuusmaksu, *lblJasenmaksu;
    QTreeWidget *cntPaymentRow; // the ledger's payments of the invoice, read only
    QLabel *lblSuoritettu, *lblAvoinna;
    QCheckBox *chkPoistamaksettu;
    QToolButton *cHaeTiedot, *cMaksetuksi, *cViitteeksi, *cTulosta, *cKopiot, *cMuistutukset, *cEmail, *cEmailPreview, *cSulje;
    QMenu *mLasku, *mPoista, *mRaportit;

    void cHaeTiedot_Click();
    void cMaksetuksi_Click();
    void cViitteeksi_Click();
    void cTulosta_Click();
    void cKopiot_Click();
    void cMuistutukset_Click();
    void cEmail_Click();
    // The e-mail reminder of the invoice on screen, merged into the preview.
    void cEmailPreview_Click();

protected:
    bool eventFilter(QObject *kohde, QEvent *e) override;

private:
    QWidget *rakennaTiedot();
    void rakennaValikot();
    void nayta(const HistorianLasku *l);
    void tyhjenna();
    void poista(int (*poisto)(db::Database &));
    void tulostaLista(int lista);

    qint64 m_jmhID = 0, m_jrID = 0;
    QList<QAction *> m_komennot;
};

void AvaaMaksukirja(QWidget *parent);
