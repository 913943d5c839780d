// A club for the report tests: an upgraded database with members whose names,
// addresses and dates are known, so that a test can tell which rows a report must show.
#pragma once

#include "malliseura.h"
#include "platform/database.h"

#include <QDate>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

struct TestiJasen {
    QString sukunimi, etunimi, osoite, postinumero, toimipaikka, puhelin, jasennumero;
    QVariant jasenmaksu = true; // Null allowed
    QDate syntyma = {};
    QString maa = {};
};

// The template and the upgrade at `polku`.
inline std::unique_ptr<db::Database> LuoTyhjaSeura(const QString &polku) { return malliseura::kopio(polku); }

inline qint64 LisaaJasen(db::Database &d, const TestiJasen &j)
{
    d.execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka, jrPuhelin, "
                             "jrJasennumero, jrJasenmaksu, jrSyntyma, jrMaa) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
              {j.sukunimi, j.etunimi, j.osoite, j.postinumero, j.toimipaikka, j.puhelin, j.jasennumero, j.jasenmaksu,
               j.syntyma.isValid() ? QVariant(j.syntyma.toString(Qt::ISODate)) : QVariant(), j.maa.isEmpty() ? QVariant() : QVariant(j.maa)});
    return d.lastInsertId();
}

// Member i of a generated club: surnames, first names and streets go round lists of different
// lengths, so every combination is believable and the same i always gives the same member.
inline TestiJasen GeneroituJasen(int i)
{
    static const QStringList suku = QStringLiteral("Virtanen Korhonen Mäkinen Nieminen Hämäläinen Laine Heikkinen Koskinen "
                                                   "Järvinen Lehtonen Saarinen Salminen Öhman Åberg Ahonen Zetterberg "
                                                   "Ääritalo Väisänen Turunen Rantanen Ojala Kinnunen Lindqvist").split(u' ');
    static const QStringList etu = QStringLiteral("Aino Eero Helmi Juha Kaisa Lauri Maija Onni Pirjo Sami Tuula Väinö Ilona "
                                                  "Matti Elina Ville Anneli").split(u' ');
    static const QStringList kadut =
        QStringLiteral("Koulukatu Rantatie Mäntypolku Kirkkokatu Pajakuja Harjutie Satamakatu").split(u' ');
    static const QStringList paikat = QStringLiteral("00100 Helsinki,33100 Tampere,20100 Turku,90100 Oulu,40100 Jyväskylä,"
                                                     "70100 Kuopio").split(u',');
    TestiJasen j;
    j.sukunimi = suku[i % suku.size()];
    j.etunimi = etu[(i * 7) % etu.size()];
    j.osoite = QStringLiteral("%1 %2").arg(kadut[i % kadut.size()]).arg(1 + i % 47);
    const QString paikka = paikat[(i / 3) % paikat.size()];
    j.postinumero = paikka.left(5);
    j.toimipaikka = paikka.mid(6);
    j.puhelin = QStringLiteral("040 %1").arg(1000000 + i * 37 % 8999999);
    j.jasennumero = QString::number(i + 1);
    j.jasenmaksu = i % 4 != 0;
    j.syntyma = QDate(1940 + i % 60, 1 + i % 12, 1 + i % 28);
    return j;
}

inline void LisaaGeneroidut(db::Database &d, int maara)
{
    db::Transaction t(d);
    for (int i = 0; i < maara; ++i)
        LisaaJasen(d, GeneroituJasen(i));
    t.commit();
}

// The text of a PDF as pdftotext reads it (poppler-utils is a dependency of the tests); empty when
// the file cannot be read.
inline QString PdfTeksti(const QString &pdf)
{
    QProcess p;
    p.start(QStandardPaths::findExecutable(QStringLiteral("pdftotext")), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}
