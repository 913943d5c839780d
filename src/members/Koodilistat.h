// The code lists: member kinds, member groups, countries and postal codes. Each row is an object
// that holds its fields, a changed mark and the values as read, and reads, saves and deletes
// itself, opening the database by its name for each operation.
//
// Every class follows one pattern (cKoodirivi). The member kinds, groups and countries are keyed
// by their AutoNumber id; the postal codes by the code itself, a text in which a leading zero
// counts ("00100" and "100" are two codes).
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <stdexcept>

namespace db {
class Database;
}

// A refused save, with the message the user is shown.
class KoodilistaVirhe : public std::runtime_error {
public:
    explicit KoodilistaVirhe(const QString &viesti) : std::runtime_error(viesti.toStdString()), m_viesti(viesti) {}
    QString viesti() const { return m_viesti; }

private:
    QString m_viesti;
};

// One row of a code list as the list window shows it: the key and "code name".
struct KoodilistanRivi {
    QVariant avain; // the id, or the postal code
    QString teksti;
};

class cKoodirivi : public QObject {
    Q_OBJECT
public:
    ~cKoodirivi() override;

    void setTietokanta(const QString &polku) { m_polku = polku; }
    QString Tietokanta() const { return m_polku; }

    // The AutoNumber id; 0 for a row not yet saved.
    qint64 Id() const { return m_id; }
    void setId(qint64 id) { m_id = id; }
    bool Muuttunut() const { return m_muuttunut; }
    // The key the step operations and the list use: the id, or the postal code as read.
    QVariant Avain() const;
    // "code name" as the list shows the row.
    QString Teksti() const;

    // The row's values as last read or saved, dropping every change. A new row becomes empty.
    void Tyhjenna();
    // An empty new row (id 0), as a fresh object is.
    void Uusi();
    // Reads the row of a key as Avain() gives it; false (and nothing changed) when it is gone.
    bool LueAvaimella(const QVariant &avain) { return lue(avain); }

    // Writes the row: a new one is added and gets its id, an existing one is updated (or added
    // again when someone has deleted it meanwhile). A new row with every field empty is not
    // written. Throws KoodilistaVirhe when the row cannot be saved as it is.
    void Save();
    void Delete();

    // Each reads the row it finds and clears the mark; false (and nothing changed) when there is
    // no such row.
    bool GetFirst();
    bool GetPrevious();
    bool GetNext();
    bool GetLast();

    // Every row in the list order.
    QVector<KoodilistanRivi> Luettelo() const;

signals:
    void Changed();     // the changed mark went on
    void NameChanged(); // the name changed

protected:
    struct Taulu {
        QString nimi;        // table
        QString id;          // AutoNumber column
        QString avain;       // key column: the id, or a text column
        QStringList kentat;  // the fields, in order
        int nimiKentta = 1;  // which field is "the name"
        QString jarjestys;   // ORDER BY of the list
    };
    cKoodirivi(const Taulu &taulu, QObject *parent);

    QString kentta(int i) const { return m_arvot.value(i); }
    void asetaKentta(int i, const QString &arvo);
    bool lue(const QVariant &avain);
    // Checks before a write; the postal codes refuse an empty or taken code.
    virtual void tarkistaTallennus(db::Database &db);
    bool tekstiavain() const { return m_taulu.avain != m_taulu.id; }

private:
    bool lueEnsimmainen(const QString &ehto, const QVariant &arvo, const QString &jarjestys);
    void lueRivilta(const QVector<QVariant> &rivi);
    QVariant tallennusarvo(int i) const;

    Taulu m_taulu;
    QString m_polku;
    qint64 m_id = 0;
    QStringList m_arvot;
    QStringList m_luetut;
    bool m_muuttunut = false;
};

// Code and name: the shape of the member kinds, the member groups and the countries.
class cKoodi : public cKoodirivi {
    Q_OBJECT
public:
    QString Koodi() const { return kentta(0); }
    void setKoodi(const QString &v) { asetaKentta(0, v); }
    QString Nimi() const { return kentta(1); }
    void setNimi(const QString &v) { asetaKentta(1, v); }
    bool ReadById(qint64 id) { return lue(id); }

protected:
    cKoodi(const QString &taulu, const QStringList &lisakentat, QObject *parent);
};

class cJasenlaji : public cKoodi {
    Q_OBJECT
public:
    explicit cJasenlaji(QObject *parent = nullptr);
};

class cJasenryhma : public cKoodi {
    Q_OBJECT
public:
    explicit cJasenryhma(QObject *parent = nullptr);
};

class cMaa : public cKoodi {
    Q_OBJECT
public:
    explicit cMaa(QObject *parent = nullptr);
    // The text printed for the country.
    QString TulosteTeksti() const { return kentta(2); }
    void setTulosteTeksti(const QString &v) { asetaKentta(2, v); }
};

// The sales types of the invoice rows: an accounting number and a name, listed by name.
class cMyyntilaji : public cKoodirivi {
    Q_OBJECT
public:
    explicit cMyyntilaji(QObject *parent = nullptr);
    QString Numero() const { return kentta(0); }
    void setNumero(const QString &v) { asetaKentta(0, v); }
    QString Nimi() const { return kentta(1); }
    void setNimi(const QString &v) { asetaKentta(1, v); }
};

class cPostinumero : public cKoodirivi {
    Q_OBJECT
public:
    explicit cPostinumero(QObject *parent = nullptr);
    QString Postinumero() const { return kentta(0); }
    void setPostinumero(const QString &v) { asetaKentta(0, v); }
    // The post office is the postal code's name.
    QString Postitoimipaikka() const { return kentta(1); }
    void setPostitoimipaikka(const QString &v) { asetaKentta(1, v); }
    bool ReadById(const QString &postinumero) { return lue(postinumero); }

protected:
    void tarkistaTallennus(db::Database &db) override;
};
