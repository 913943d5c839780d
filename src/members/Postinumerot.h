// Look-ups in the postal code list, each opening the database by its name and closing it.
#pragma once

#include <QString>
#include <QVector>

struct PostinumeroRivi {
    qint64 Postinumero_ID = 0;
    QString Postinumero;
    QString Postitoimipaikka;
};

class cPostinumerot {
public:
    explicit cPostinumerot(const QString &tietokanta = {}) : m_polku(tietokanta) {}
    void setTietokanta(const QString &polku) { m_polku = polku; }

    // The post office of the code, empty when the code is not in the list. The code is compared
    // as text, so "00100" is not "100".
    QString Postitoimipaikka(const QString &postinumero) const;
    // The codes of a post office (case aside), in code order.
    QVector<PostinumeroRivi> Postinumerot(const QString &postitoimipaikka) const;

private:
    QString m_polku;
};
