// A selection formula turned into an SQL condition, with every value bound. Booleans read Null
// as False; text compares in Finnish order without regard to case; "like" takes the wild cards
// * and ?; dates compare by their day.
#pragma once

#include "core/Schema.h"
#include "platform/database.h"
#include "reports/Kaava.h"

struct SqlEhto {
    QString sql; // "" means every row
    db::Params arvot;
};

// What the translation asks of the report's data: the SQL of a field and its kind, and the tree
// of a named formula. Both throw RaporttiVirhe for names that do not exist.
class SqlNimet {
public:
    virtual ~SqlNimet() = default;
    virtual QString kentanSql(const Solmu &kentta, KenttaLaji *laji) = 0;
    virtual const Solmu &kaava(const QString &nimi) = 0;
};

// `missa` names the formula in messages ("Valintakaava", "Liitos pt").
SqlEhto KaannaEhdoksi(const Solmu &kaava, SqlNimet &nimet, const QString &missa);
// ORDER BY term of a value (a sort field, a group's expression): Finnish order for text.
SqlEhto KaannaJarjestykseksi(const Solmu &lauseke, bool laskeva, SqlNimet &nimet, const QString &missa);

// The LIKE pattern of a pattern with * and ?, with % _ and \ escaped by a backslash.
QString LikeKuvio(const QString &kuvio);
