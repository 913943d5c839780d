// Families: the links of `jrPerhe` between a family's head and its members, their classes, and
// the rules that keep the links in order.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>
#include <array>

// The eight family classes, in the order of the member window's boxes.
inline constexpr int PerheLuokkia = 8;
using PerheLuokat = std::array<bool, PerheLuokkia>;
QString PerheLuokkaKentta(int i);  // "jrPAik" …
QString PerheLuokkaOtsikko(int i); // "Aikuinen" …

struct PerheenJasen {
    qint64 jrPID = 0;
    QString teksti; // surname, blank, first name
};

// What the family tab shows for a member.
struct PerhePaneeli {
    QVector<PerheenJasen> jasenet; // for a head: his family, members that no longer exist left out
    QString perheenPaa;            // for another member: his head's first name and surname
};

// Loads the panel of member `jrId`; `paa` is the head mark on the window. A non-head whose
// head no longer exists loses the link here, and only here.
PerhePaneeli LataaPerhe(db::Database &db, qint64 jrId, bool paa);

// The classes of one link; all clear when the link is gone.
PerheLuokat LueLuokat(db::Database &db, qint64 jrPID);
void TallennaLuokat(db::Database &db, qint64 jrPID, const PerheLuokat &luokat);

// The head mark ticked: the head joins his own family (once).
void LiitaPaaPerheeseen(db::Database &db, qint64 jrId);
// The head mark unticked and confirmed: every link of his family goes, his own too.
void PuraPerhe(db::Database &db, qint64 jrId);

// Adds `jasenId` to the family of `paaId` with no class; returns the new link. Nothing is
// checked: a person may be in two families, or twice in one.
qint64 LisaaPerheeseen(db::Database &db, qint64 paaId, qint64 jasenId);
void PoistaPerheesta(db::Database &db, qint64 jrPID);

struct PerheenOsoite {
    QString osoite, postinumero, postitoimipaikka, maa;
};
// Writes the address to every member of the family that `jrId` belongs to: his own family when
// he is a head, else the family of his first link. Returns the number of members written;
// 0 when he has no family. The numeric postal code and home town of the rows stay as they are.
int MuutaPerheenOsoitteet(db::Database &db, qint64 jrId, bool paa, const PerheenOsoite &osoite);
