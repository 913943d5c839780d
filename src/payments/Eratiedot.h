// What the payment windows show of a batch of the bank's file: its header and its totals as the
// labels of "Erätiedot", and the totals of every batch of the file together.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QList>
#include <QString>
#include <optional>
#include <utility>

// The labels of the batch in the window's order, each as (control name, text): lblPvm, lblAika,
// lblPankki, lblLaskuttaja, lblRahayksikko, then the counts and sums lblTapKPL … lblEpaSUM.
QList<std::pair<QString, QString>> EranTiedot(const ViiteEra &era);

// "Markka" for a single blank, "Euro" for anything else.
QString Rahayksikko(const QString &koodi);

// The six totals of all batches added up, as (control name, text): lblSummaTapKPL … lblSummaEpaSUM.
QList<std::pair<QString, QString>> KaikkienEriensaSummat(const QList<ViiteEra> &erat);

// The bank's file read for a window or a verb: nothing, after the program's message, when it cannot
// be read ("Avauksessa tapahtui virhe: " with the number and the reason) or holds no payments.
std::optional<QList<ViiteEra>> LueViitetiedosto(const QString &polku);
