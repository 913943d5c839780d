// What the two windows over the bank's file share: choosing and reading the file, and the page
// of a batch's header and totals.
#pragma once

#include "payments/Eratiedot.h"

#include <QGroupBox>
#include <QHash>
#include <QList>
#include <QString>
#include <QWidget>
#include <optional>

class QComboBox;
class QFormLayout;
class QLabel;

// The open-file dialog "Vonari - viitemaksutiedosto" from the last file read (the setting
// ViiteHakemisto, which the choice then replaces), and the file read. Nothing on a cancel, or
// after the program's message when the file cannot be read or holds no payments.
std::optional<QList<ViiteEra>> ValitseViitetiedosto(QWidget *ikkuna, QString *polku);

// The rows "Avattu tiedosto:" and "Avattu erä:" over a window's lists; the batch box starts off.
QFormLayout *TiedostoJaEra(QWidget *parent, QLabel *&lblTiedosto, QComboBox *&cmbErat);

// The frames "Erätiedot" and "Summatiedot" side by side, their labels named as the window's controls.
class Eratiedot : public QWidget {
public:
    explicit Eratiedot(QWidget *parent = nullptr);
    void nayta(const ViiteEra &era);
    void tyhjenna();
    QLabel *label(const QString &nimi) const { return m_arvot.value(nimi); }

private:
    QHash<QString, QLabel *> m_arvot;
};

// A frame of value labels under their captions, each label named and kept in `arvot`.
QGroupBox *Arvokehys(const QString &otsikko, const QList<std::pair<const char *, QString>> &rivit,
                     QHash<QString, QLabel *> &arvot, QWidget *parent);
