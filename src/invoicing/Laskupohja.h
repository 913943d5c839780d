// An invoice template (table Laskupohjat): the stored header of an invoice window and its 19 row
// settings, and the templates as a read collection by name.
//
// A template owns 4 plain rows, 11 family rows and 4 attribute rows, whatever its own kind is, so
// that switching the kind keeps what was typed under the others. A row is read when first asked
// for and made (and saved) when it is missing. A new template keeps its rows in memory until its
// first save gives it an id; they are then written with it.
//
// The release rule: a template that goes away, or moves to another row, saves itself and its
// changed rows. Only Cancel() drops changes.
#pragma once

#include "invoicing/LaskupohjaRivi.h"
#include "invoicing/LaskupohjaTietue.h"

#include <QString>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace laskupohja {

// The value of Laskutyyppi.
enum Tyyppi { Perus = 0, Perhe = 1, Ominaisuus = 2 };
// Rows of each kind: plain, family, attribute.
int RivienMaara(int laskutyyppi);
// LaskunPaivamaara: leave the date empty, or the day the template is applied.
constexpr int PaivaTyhja = -1;
constexpr int PaivaLisayspaiva = 0;

} // namespace laskupohja

class cLaskupohja final : public cLaskupohjaTietue {
    Q_OBJECT
public:
    explicit cLaskupohja(QObject *parent = nullptr);
    ~cLaskupohja() override;

    // An empty name is stored as one blank " ".
    QString Nimi() const { return teksti(1); }
    void setNimi(const QString &v) { aseta(1, v); }
    QString LaskunOtsake() const { return teksti(2); }
    void setLaskunOtsake(const QString &v) { aseta(2, v); }
    int Laskutyyppi() const { return int(luku(3)); }
    void setLaskutyyppi(int v) { aseta(3, v); }
    // -1 leaves the invoice date empty, 0 is the day of applying.
    int LaskunPaivamaara() const { return int(luku(4)); }
    void setLaskunPaivamaara(int v) { aseta(4, v); }
    // Days from the invoice date to the due date; -1 leaves the due date alone.
    int LaskunErapaiva() const { return int(luku(5)); }
    void setLaskunErapaiva(int v) { aseta(5, v); }
    QString TilisiirronTeksti() const { return teksti(6); }
    void setTilisiirronTeksti(const QString &v) { aseta(6, v); }
    bool Jasenmaksu() const { return totuus(7); }
    void setJasenmaksu(bool v) { aseta(7, v); }
    bool HenkilokohtainenViite() const { return totuus(8); }
    void setHenkilokohtainenViite(bool v) { aseta(8, v); }
    bool IlmanViitetta() const { return totuus(9); }
    void setIlmanViitetta(bool v) { aseta(9, v); }
    bool IlmanLoppusummaa() const { return totuus(10); }
    void setIlmanLoppusummaa(bool v) { aseta(10, v); }
    QString Lisatietoja() const { return teksti(11); }
    void setLisatietoja(const QString &v) { aseta(11, v); }
    QString Pankkitili1() const { return teksti(12); }
    void setPankkitili1(const QString &v) { aseta(12, v); }
    bool KaytaPankkitili1() const { return totuus(13); }
    void setKaytaPankkitili1(bool v) { aseta(13, v); }

    // The row of a kind and position, made and saved when missing. A position outside the kind's
    // rows throws std::out_of_range.
    cLaskupohjaRivi &PerusLaskupohjarivi(int jarjestys) { return rivi(laskupohja::Perus, jarjestys); }
    cLaskupohjaRivi &PerheLaskupohjarivi(int jarjestys) { return rivi(laskupohja::Perhe, jarjestys); }
    cLaskupohjaRivi &OminaisuusLaskupohjarivi(int jarjestys) { return rivi(laskupohja::Ominaisuus, jarjestys); }
    const cLaskupohjaRivi &PerusLaskupohjarivi(int jarjestys) const { return rivi(laskupohja::Perus, jarjestys); }
    const cLaskupohjaRivi &PerheLaskupohjarivi(int jarjestys) const { return rivi(laskupohja::Perhe, jarjestys); }
    const cLaskupohjaRivi &OminaisuusLaskupohjarivi(int jarjestys) const { return rivi(laskupohja::Ominaisuus, jarjestys); }

    // Moves by Laskupohja_ID, the order of making. A changed template is saved first. Past the
    // end the object becomes empty and false is returned.
    bool GetFirst();
    bool GetPrevious();
    bool GetNext();
    bool GetLast();

    // Writes the header when forced or changed, then the changed rows; a new template's rows
    // are written with the id it got.
    void Save(bool pakota = false) override;
    // Deletes the template with its rows; the object becomes empty.
    void Delete() override;
    // Drops the changes of the header and of every row held.
    void Cancel() override;
    // An empty new template without rows; changes are dropped, not saved.
    void Uusi() override;
    // Changed itself, or holds a changed row.
    bool RivejaMuuttunut() const;

protected:
    void uudenArvot() override;
    void tallennettu(db::Database &d) override;
    void luovu() override;
    bool tallennettavaa() const override { return RivejaMuuttunut(); }

private:
    friend class cLaskupohjat;
    cLaskupohjaRivi &rivi(int laskutyyppi, int jarjestys) const;
    void pudotaRivit();
    // Runs a save of the template and its rows: a failure puts every row back as it was too.
    template <class F>
    void rivitPalautuen(F &&tallenna);
    bool siirry(const QString &ehto, const QString &jarjestys);

    // Rows by (kind, position), read when first asked for.
    mutable std::map<std::pair<int, int>, std::unique_ptr<cLaskupohjaRivi>> m_rivit;
};

// The templates of one kind (-1: all), by name, read-only. Entries are keyed "I" + id.
class cLaskupohjat {
public:
    cLaskupohjat();
    ~cLaskupohjat();
    // Each template opens its own connection on `polku` later.
    void Lataa(const QString &polku, int laskutyyppi);
    // Read through `yhteys`, which the templates are lent (it must outlive them).
    void Lataa(db::Database &yhteys, int laskutyyppi);

    int Count() const { return int(m_pohjat.size()); }
    // 0-based, in the order of the names.
    cLaskupohja &Item(int indeksi) const { return *m_pohjat.at(size_t(indeksi)); }
    // By key "I" + id; nullptr when there is none.
    cLaskupohja *Item(const QString &avain) const;

private:
    void lataa(db::Database &d, const QString &polku, db::Database *lainattu, int laskutyyppi);
    std::vector<std::unique_ptr<cLaskupohja>> m_pohjat;
};
