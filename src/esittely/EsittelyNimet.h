// The word lists of the demonstration club: Finnish names, streets, post offices and the like.
// The most common entries come first; the generator picks the front of a list more often.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace esittely {

struct Postitoimipaikka {
    QString postinumero;
    QString toimipaikka;
    QString kunta;   // the home municipality printed in the register
    QString maa;     // empty at home, the country's name abroad
    QString suunta;  // area code of a landline, empty abroad
};

const QStringList &Sukunimet();
const QStringList &HeittomerkkiSukunimet(); // O'Connor and the like, rare in a Finnish club
const QStringList &MiestenNimet();
const QStringList &NaistenNimet();
const QStringList &Kadut();

// The club's home town first, then its neighbours, then the rest of the country, then abroad.
const QVector<Postitoimipaikka> &KotiseudunPostitoimipaikat();
const QVector<Postitoimipaikka> &NaapurikuntienPostitoimipaikat();
const QVector<Postitoimipaikka> &MuunSuomenPostitoimipaikat();
const QVector<Postitoimipaikka> &UlkomaisetPostitoimipaikat();

const QStringList &Tittelit();
const QStringList &Yritykset();
const QStringList &Lisatiedot();
const QStringList &Muistiot();
const QStringList &Sahkopostipalvelut();
const QStringList &Joukkueet();
const QStringList &Hallitustehtavat();
const QStringList &Toimihenkilotehtavat();

} // namespace esittely
