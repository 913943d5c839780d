// The value panel of an attribute: the description and the four typed boxes with their labels.
// An enabled label says that its type belongs to the attribute. Used by the member window's
// attribute tab and by the attaching dialogs.
#pragma once

#include "members/PiirreArvot.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

class ArvoPaneeli : public QWidget {
    Q_OBJECT
public:
    explicit ArvoPaneeli(QWidget *parent = nullptr);

    // TyhjennaArvot: labels off, boxes emptied and off, no description.
    void TyhjennaArvot();
    // The description labels on, with the text.
    void naytaKuvaus(const QString &kuvaus);
    // Each type in use gets its label and box on and the box its text; the others stay off.
    void naytaArvot(const ArvoSyote &arvot);
    // The boxes as they stand; a type is in use when its label is enabled.
    ArvoSyote syote() const;
    // Empties the boxes whose text was refused at a store.
    void tyhjenna(const std::array<bool, ArvoTyyppeja> &mitka);

    QLabel *lblKuvaus, *lKuvaus;
    QLabel *lblDate, *lblLong, *lblCurrency, *lblMemo;
    QLineEdit *tDate, *tLong, *tCurrency;
    QPlainTextEdit *tMemo;

signals:
    // The user changed a value.
    void muutettu();

private:
    QLabel *label(ArvoTyyppi t) const;
    QWidget *laatikko(ArvoTyyppi t) const;
    void asetaTeksti(ArvoTyyppi t, const QString &teksti);
    QString teksti(ArvoTyyppi t) const;
    void lahtiessa(QLineEdit *t, ArvoTyyppi tyyppi);
    bool m_lataa = false;
};
