// What the two record classes of invoice templates share: the fields of one row held in memory
// with a copy as last read or saved, the changed mark, the empty mark (no row behind the object),
// cut-to-limit setters, and reading, writing and deleting the row.
//
// Each operation opens its own connection to the database file given by setTietokanta(), unless
// the object has been lent an open connection with setYhteys() (a run that works inside its own
// transaction does so); a lent connection must outlive the object or be taken back with
// setYhteys(nullptr).
#pragma once

#include "platform/currency.h"

#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>
#include <memory>
#include <vector>

namespace db {
class Database;
class Statement;
}

namespace laskupohja {

enum class Laji { Tunniste, Long, Integer, Teksti, Muistio, Totuus, Raha, Liukuluku };

struct Kentta {
    const char *nimi;
    Laji laji;
    int raja = 0; // the longest text in characters; 0 for none
};

// The table of a record class; the first field is its AutoNumber key.
struct Taulu {
    const char *nimi;
    std::vector<Kentta> kentat;
};

// A connection for one operation: the lent one, or one of its own opened on the path.
class Kanta {
public:
    Kanta(const QString &polku, db::Database *lainattu);
    ~Kanta();
    db::Database &operator*() const { return *m_db; }
    db::Database *operator->() const { return m_db; }

private:
    std::unique_ptr<db::Database> m_oma;
    db::Database *m_db;
};

// A text cut to `raja` characters as the database counts them (code points), never splitting a
// character that takes two UTF-16 units.
QString Katkaistu(const QString &teksti, int raja);

} // namespace laskupohja

class cLaskupohjaTietue : public QObject {
    Q_OBJECT
public:
    ~cLaskupohjaTietue() override;

    void setTietokanta(const QString &polku) { m_polku = polku; }
    QString Tietokanta() const { return m_polku; }
    void setYhteys(db::Database *yhteys) { m_yhteys = yhteys; }
    db::Database *Yhteys() const { return m_yhteys; }

    qint64 ID() const { return luku(0); }
    // Changed since read, saved or made.
    bool Muuttunut() const { return m_muuttunut; }
    // No row behind the object: new, deleted, or a move ran past the end.
    bool Tyhja() const { return m_tyhja; }

    // Reads the row of `id`. A changed object is saved first. False, and the object empty, when
    // there is no such row.
    bool ReadById(qint64 id);
    // Writes the row when `pakota` is set or the object has changed: a new object (id 0) is
    // added and gets its id.
    virtual void Save(bool pakota = false);
    // Deletes the row; the object becomes empty.
    virtual void Delete();
    // Drops the changes: the fields as last read or saved; a new object's as it was made.
    virtual void Cancel();
    // An empty new object, as a fresh one is. Changes are dropped, not saved.
    virtual void Uusi();

signals:
    // The changed mark went on.
    void Changed();
    // A field took a new value (its column name).
    void FieldChanged(const QString &kentta);

protected:
    cLaskupohjaTietue(const laskupohja::Taulu &taulu, QObject *parent);

    QString teksti(int i) const { return m_arvot.at(i).toString(); }
    qint64 luku(int i) const { return m_arvot.at(i).toLongLong(); }
    bool totuus(int i) const { return m_arvot.at(i).toBool(); }
    Currency raha(int i) const { return Currency::fromRaw(m_arvot.at(i).toLongLong()); }
    double liuku(int i) const { return m_arvot.at(i).toDouble(); }
    // Sets a field: a text is cut to its limit and a number kept inside its column's range in
    // silence. A different value marks the object changed and is told by the signals.
    void aseta(int i, const QVariant &arvo);

    // The values a new object starts with (all empty unless a class says otherwise).
    virtual void uudenArvot() {}
    // Runs after the row was written, in the same transaction.
    virtual void tallennettu(db::Database &) {}
    // Whether the row may be written at all.
    virtual bool voiTallentaa() const { return true; }
    // Writes the row through `d` in a transaction of its own (nested in one that is open). On a
    // failure the object is as it was before, changes and all, and the error is thrown.
    void tallennaYhteydella(db::Database &d);
    // The whole state of the object, to put back when a save around it fails.
    struct Tila {
        QVector<QVariant> arvot, kopio;
        bool muuttunut = false, tyhja = true;
    };
    Tila tila() const { return {m_arvot, m_kopio, m_muuttunut, m_tyhja}; }
    void palauta(const Tila &t);
    // Before the object moves to another row: a changed object keeps its changes by saving.
    virtual void luovu();
    // Whether the release rule has something to save.
    virtual bool tallennettavaa() const { return m_muuttunut; }
    // Sets a field without marking a change (the values a new object starts with).
    void alkuarvo(int i, const QVariant &arvo);
    // The present values become the ones Cancel returns to, and the object unchanged.
    void otaKopio();

    // The first row of `sql` into the object; false (and the object empty) without a row.
    bool lueEnsimmainen(const QString &sql, const QVector<QVariant> &arvot);
    void lueLauseesta(const db::Statement &st);
    void tyhjenna();
    void kirjoita(db::Database &db);
    laskupohja::Kanta kanta() const { return laskupohja::Kanta(m_polku, m_yhteys); }
    // The release rule: a changed object saves itself. Never throws; a failure is shown to the
    // user. Each record class calls it from its destructor.
    void vapauta() noexcept;
    void asetaMuuttunut(bool muuttunut);

private:
    QVariant tallennusarvo(int i) const;

    const laskupohja::Taulu &m_taulu;
    QString m_polku;
    db::Database *m_yhteys = nullptr;
    QVector<QVariant> m_arvot;
    QVector<QVariant> m_kopio; // the fields as last read or saved
    bool m_muuttunut = false;
    bool m_tyhja = true;
};
