// The preview of a report: its pages one under another, with buttons to print and to save the
// report as a PDF file. Opens maximised when the engine asks so. The pages are read from where
// the engine keeps them as they come into view, so a batch of any length scrolls to its end.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class Sivunakyma;
class Sivusto;

class frmEsikatselu : public QDialog {
    Q_OBJECT
public:
    // `sivut` must outlive the window.
    frmEsikatselu(const Sivusto &sivut, bool tulostusnappi, QWidget *parent = nullptr);

    QPushButton *cTulosta;
    QPushButton *cPdf;
    QComboBox *cmbZoom;
    QLabel *lblSivut;
    QPushButton *cSulje;

    // Saves as PDF to a file the user chooses, with progress and "Keskeytä"; false when
    // cancelled, stopped or not written.
    bool tallennaPdf();
    // The page at the top of the view, from 0.
    int nakyvaSivu() const;
    Sivunakyma *nakyma() const { return m_nakyma; }

private:
    void tulosta();
    void zoomaa();
    void naytaSivu();

    const Sivusto &m_sivut;
    Sivunakyma *m_nakyma;
};
