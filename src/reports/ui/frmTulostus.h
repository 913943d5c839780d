// "Vonari - Tulostusasetukset": where a report goes (the preview window or the printer), how
// many copies, and which printer.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;

class frmTulostus : public QDialog {
    Q_OBJECT
public:
    // With `vainTulostin` the list offers the printer alone.
    explicit frmTulostus(bool vainTulostin = false, QWidget *parent = nullptr);

    QComboBox *cmbTulostusLaite;
    QLineEdit *tKopioita;
    QPushButton *cTulostin;
    QPushButton *cTulosta;
    QPushButton *cPeruTulostus;

protected:
    void reject() override; // closing the window is a cancel

private:
    void cTulosta_Click();
    void cPeruTulostus_Click();
    void cTulostin_Click();
};

// Shows the window modally; false when the user cancelled (TulostusPeruttu).
bool NaytaTulostusasetukset(bool vainTulostin = false, QWidget *parent = nullptr);
