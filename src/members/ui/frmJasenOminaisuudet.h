// The "Ominaisuudet" tab of the member window: the member's attributes, attaching one from the
// list of definitions, the typed values of the selected one, and removing one. The member
// window owns the row; this page owns the value panel, a small edit buffer that the window
// flushes through tallennaPiirre() before the family store on every command that leaves the row.
#pragma once

#include <QWidget>

class ArvoPaneeli;
class QListWidget;
class QPushButton;

class frmJasenOminaisuudet : public QWidget {
    Q_OBJECT
public:
    explicit frmJasenOminaisuudet(QWidget *parent = nullptr);

    // Reposition: the member's attributes into lstAllPt (those whose definition is gone are
    // skipped), the first selected.
    void naytaJasen(qint64 jrID);
    // bPiirreMuuttunut: a value was edited and is not yet stored.
    bool piirreMuuttunut() const { return bPiirreMuuttunut; }
    // TallennaPiirreArvo: stores the pending value. False when the store failed (the message
    // has been shown).
    bool tallennaPiirre();
    // Refills lstAllPi with the definitions.
    void paivitaPiirteet();
    // The panel back to browsing the member's attributes (lstAllPi away).
    void palaaSelaukseen();
    // Drops the pending value and shows the stored one again.
    void peruPiirre();

    QListWidget *lstAllPt, *lstAllPi;
    QPushButton *cLisaaPiirre, *cPoistaPiirre, *cSelaaPiirre;
    ArvoPaneeli *arvot;

signals:
    // The user edited a value: the member row goes into edit mode.
    void muutettu();
    // The page stored its pending value before a command of its own; the window stores its
    // pending family edits now, as it always does right after the attribute.
    void perheTallennettava();

protected:
    bool eventFilter(QObject *kohde, QEvent *e) override;

private:
    bool tallennaKesken();
    void lisaaPiirre();
    void liita();
    void poistaPiirre();
    void selaaPiirre();
    void lstAllPt_Click();
    void naytaValittu();
    void lstAllPi_Click();
    // Selects the row and shows its values; the caller has stored what was pending.
    void valitse(int rivi);
    void arvoMuuttui();

    qint64 m_jrID = 0;
    bool bPiirreMuuttunut = false;
    qint64 m_muokattuPt = 0; // the attachment whose value is pending
    bool m_lataa = false;    // selection changes made by the page itself
};
