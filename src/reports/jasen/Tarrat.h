// The label sheet table Tarra: one label to a row, six text lines. The family labels and other
// label runs fill it, and "tarrat.rpt" prints it in the order of insertion ("+{Tarra.Tarra_ID}").
#pragma once

#include <QString>
#include <array>
#include <functional>

namespace db {
class Database;
}

class cTarra {
public:
    explicit cTarra(QString tietokanta) : m_polku(std::move(tietokanta)) {}
    // On a connection the caller holds open, so that a run of labels is one transaction.
    explicit cTarra(db::Database &kanta) : m_kanta(&kanta) {}

    qint64 Tarra_ID() const { return m_id; }
    QString Rivi(int i) const { return m_rivit.at(size_t(i)); } // i from 1 to 6
    void setRivi(int i, const QString &teksti);
    bool Muuttunut() const { return m_muuttunut; }

    // Adds the label when it has no id yet, otherwise writes it through its key. Does nothing
    // when no line changed. Throws db::DbError.
    void Save();
    // Reads the label; false (and the label emptied) when there is no such row.
    bool ReadById(qint64 id);
    // Removes the label's row; the object becomes a new, empty label.
    void Delete();

private:
    void kanta(const std::function<void(db::Database &)> &tehtava);

    QString m_polku;
    db::Database *m_kanta = nullptr;
    qint64 m_id = 0;
    std::array<QString, 7> m_rivit; // index 0 unused, so that Rivi(1) is Rivi1
    bool m_muuttunut = false;
};

class cTarrat {
public:
    explicit cTarrat(QString tietokanta) : m_polku(std::move(tietokanta)) {}
    explicit cTarrat(db::Database &kanta) : m_kanta(&kanta) {}
    QString Tietokanta() const { return m_polku; }
    // Empties the whole sheet.
    void Tyhjenna();

private:
    QString m_polku;
    db::Database *m_kanta = nullptr;
};
