// Perushaku: which member is meant, by member number, by an attribute memo, or by an exact
// contact field, each with a drop-down list of what exists. Touches no member row.
//
// The member window's search (cHaku, F6) uses it so:
//   1. TallennaKesken; on failure stop.
//   2. With bSiirtoKesken set: const qint64 id = frmHaku::hae(this);
//   3. If id is not 0: keep the bookmark, FindFirst "jrID = id"; no match: the message
//      "Jäsennumerolla ei löydy jäsentä." and the bookmark back.
//   4. bSiirtoKesken cleared.
// hae() empties the dialog's boxes after it closes, so the caller need not.
//
// The dialog is hidden, not unloaded, when it closes. Each drop-down list is read once, when it is
// first opened or typed in, and kept: a member added later is found by a typed value but is not
// in the lists until the database changes or the member window that owns the dialog is closed.
#pragma once

#include <QDialog>

class HakuMalli;
class QComboBox;
class QLineEdit;
class QPushButton;

class frmHaku : public QDialog {
    Q_OBJECT
public:
    // Shows the dialog modally over `parent` and returns the found jrID; 0 when nothing was
    // found, the user cancelled, or no database is set (after its message).
    static qint64 hae(QWidget *parent);
    // The loaded dialog, or nullptr before the first use.
    static frmHaku *ladattu();
    // Unloads the dialog (the end of the run; a test that wants a fresh one).
    static void pura();

    // The found jrID, readable after the dialog closes; 0 means nothing found.
    qint64 LoydettyID = 0;

    QComboBox *cmbJasenNro;
    QPushButton *cHae;
    QLineEdit *tMuistioHakuSana;
    QComboBox *cmbMuistioAlut;
    QPushButton *cMuistioHaku;
    QComboBox *cmbOsoite, *cmbPuhelin, *cmbMatkapuhelin, *cmbEmail;
    QPushButton *cYhteysHaku;
    QPushButton *cPeruHaku[3];

private:
    explicit frmHaku(QWidget *parent);
    void rakenna();
    QComboBox *valinta(const char *nimi, bool muokattava, int leveys);
    QPushButton *painike(const char *nimi, const QString &teksti);
    void lataa();
    void tyhjenna();
    void hae_();
    void muistioHaku();
    void yhteysHaku();
    void peru();
    void yhteystietoKirjoitettu(QComboBox *kirjoitettu);
    static bool valittu(const QComboBox *c);
    static qint64 valitunId(const QComboBox *c);
    HakuMalli *malli(QComboBox *c) const;
    void loytyi(qint64 id);

    QString m_kanta; // the database the lists were read from
};
