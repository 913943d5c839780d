// "Vonari - Sähköpostilaskun esikatselu": the e-mail of each open invoice as its template makes
// it, browsed invoice by invoice; or one merged text, such as a reminder of the payment book.
#pragma once

#include "core/ui/Tietueikkuna.h"

#include <QDialog>
#include <QList>

class QLabel;
class QPlainTextEdit;
class QToolButton;

class frmEmailPreview : public QDialog {
    Q_OBJECT
public:
    // The open batch from its first invoice. Nothing (after the message) when no database is set
    // or the invoice template cannot be read.
    static frmEmailPreview *AvaaLaskut(QWidget *parent);
    // A text already merged; there is nothing to browse.
    static frmEmailPreview *NaytaTeksti(QWidget *parent, const QString &teksti);

    QToolButton *cEnsimmainen, *cEdellinen, *cSeuraava, *cViimeinen, *cClose;
    QPlainTextEdit *tLaskuTeksti;
    QLabel *lblTietue;

    // Where the browse stands: 0 for the first invoice, -1 with none.
    int kohta() const { return m_kohta; }

private:
    explicit frmEmailPreview(QWidget *parent);
    void siirry(tietue::Siirto s);
    void nayta();

    QString m_pohja;
    QList<qint64> m_laskut;
    int m_kohta = -1;
    QList<QAction *> m_komennot;
};
