// The data of a report: the main table and the linked tables that the report's formulas, sort
// fields and items use, fetched with one SELECT. A linked table is joined only when something
// refers to it, as a report designer links tables.
#pragma once

#include "reports/KaavaSql.h"
#include "reports/Lauseke.h"
#include "reports/Maaritys.h"
#include "reports/Rivilahde.h"

#include <QSet>

class Tietolahde : public SqlNimet {
public:
    // `kaavat` are the named formulas in effect; they must outlive this object.
    Tietolahde(db::Database &db, const Maaritys &m, const Kaavat &kaavat);

    // Gives every field of the tree its column in the fetched rows. Throws RaporttiVirhe, with
    // `missa` in front, for a table that is not in the report's data or a field that is not in
    // its table.
    void sido(Solmu &puu, const QString &missa);

    // Keeps the rows whose `kentta` ("{jm.jmID}") holds one of `avaimet`, in the order of the list
    // and before any other order: a batch printed in an order and from a place the program chose.
    // Throws RaporttiVirhe for a field that is not in the report's data.
    void rajaaAvaimiin(const QString &kentta, const QVector<qint64> &avaimet);

    // Fetches the rows. `valinta` is the translated selection, `jarjestys` ORDER BY terms.
    Rivisto hae(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot = {});
    // The same rows read from the database as the layout asks for them, one group of `ryhma`
    // (the outermost group's expression, bound) at a time. The rows are counted first.
    std::unique_ptr<Rivilahde> virta(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot,
                                     const Solmu &ryhma);

    // The last SELECT, for messages and tests.
    QString sql() const { return m_sql; }

    QString kentanSql(const Solmu &kentta, KenttaLaji *laji) override;
    const Solmu &kaava(const QString &nimi) override;

private:
    struct TaulunTiedot {
        QString taulu; // exact name in the file
        QHash<QString, QPair<QString, KenttaLaji>> kentat; // lower-case name -> exact name, kind
    };
    struct Sarake {
        QString sql;
        KenttaLaji laji;
    };

    const TaulunTiedot &tiedot(const QString &nimi, const QString &missa);
    Sarake sarake(const Solmu &kentta, const QString &missa);
    QString liitokset(db::Params &arvot);
    // The SELECT into m_sql, its values into `arvot`.
    void kokoa(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot, db::Params &arvot);

    db::Database &m_db;
    const Maaritys &m_m;
    const Kaavat &m_kaavat;
    QHash<QString, QString> m_taulut;       // lower-case name in formulas -> table
    QHash<QString, TaulunTiedot> m_tiedot;  // by lower-case name in formulas
    QSet<QString> m_kaytetyt;               // names used so far
    QHash<QString, int> m_sarakkeet;        // "name.field" in lower case -> column
    QVector<Sarake> m_haettavat;
    QString m_missa;
    QString m_sql;
    QString m_avainSql; // the field of rajaaAvaimiin, or empty
};

// A fetched column's value as the report holds it: Null stays Null, dates from their ISO text,
// money from its ten-thousandths, booleans from 0/1.
Arvo KentanArvo(const QVariant &v, KenttaLaji laji);

// The kind of a column from its declared type, for tables the schema does not know.
KenttaLaji LajiTyypista(const QString &tyyppi);
