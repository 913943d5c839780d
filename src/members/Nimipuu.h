// The members in name order, and the name tree built from them: a node for each letter A to Z,
// Å, Ä, Ö and "Muut", each with its members and their count.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>

struct NimiRivi {
    qint64 jrId = 0;
    QString sukunimi; // Null as empty, with onSukunimi false
    QString etunimi;
    bool onSukunimi = false;
    bool onEtunimi = false;

    // "surname first-name", as the lists and the tree show a member.
    QString teksti() const { return sukunimi + QLatin1Char(' ') + etunimi; }
};

// Every member, or the holders of attribute `piId` (each once), ordered by surname and first
// name in Finnish order, a missing name first.
QVector<NimiRivi> NimetJarjestyksessa(db::Database &db, qint64 piId = 0);

inline constexpr int NimipuunJuuria = 30;
// The root a surname belongs to: 0-25 A-Z, 26 Å, 27 Ä, 28 Ö, 29 "Muut" (any other first
// character, and no surname).
int NimipuunJuuri(const NimiRivi &r);
// The root's key ("A" … "Ö", "Muut").
QString NimipuunAvain(int juuri);
// The root's text with its count: " A   (12)", "Muut (3)".
QString NimipuunJuurenTeksti(int juuri, int maara);

struct Nimipuu {
    QVector<NimiRivi> nimet;                  // in name order
    QVector<QVector<int>> juuret;            // per root, indices into `nimet` in name order
};
Nimipuu RakennaNimipuu(db::Database &db, qint64 piId = 0);

// The attribute definitions by name, for the lists that choose one.
struct PiirreNimi {
    qint64 piId = 0;
    QString nimi;
};
QVector<PiirreNimi> PiirteetNimijarjestyksessa(db::Database &db);
