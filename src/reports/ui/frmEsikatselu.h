// The preview of a report: its pages one under another, with buttons to print and to save the
// report as a PDF file. Opens maximised when the engine asks so.
#pragma once

#include "reports/Asiakirja.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class Sivunakyma;

class frmEsikatselu : public QDialog {
    Q_OBJECT
public:
    frmEsikatselu(Asiakirja asiakirja, bool tulostusnappi, QWidget *parent = nullptr);

    QPushButton *cTulosta;
    QPushButton *cPdf;
    QComboBox *cmbZoom;
    QLabel *lblSivut;
    QPushButton *cSulje;

    const Asiakirja &asiakirja() const { return m_asiakirja; }
    // Saves as PDF to a file the user chooses; false when cancelled or not written.
    bool tallennaPdf();

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void tulosta();
    void zoomaa();
    void naytaSivu();

    Asiakirja m_asiakirja;
    QScrollArea *m_alue;
    Sivunakyma *m_sivut;
};
