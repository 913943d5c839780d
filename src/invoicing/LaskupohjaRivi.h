// One row setting of an invoice template (table Laskupohjarivit), and the rows of a template as a
// read collection. A row has the columns of all three kinds; a row of one kind uses only its own
// group: plain (Paalla, Aiheteksti, Hinta), family (Perhe…) or attribute (Om…).
#pragma once

#include "invoicing/LaskupohjaTietue.h"

#include <QString>
#include <memory>
#include <vector>

class cLaskupohjaRivi final : public cLaskupohjaTietue {
    Q_OBJECT
public:
    explicit cLaskupohjaRivi(QObject *parent = nullptr);
    // The release rule: a changed row saves itself.
    ~cLaskupohjaRivi() override;

    qint64 LaskupohjaID() const { return luku(1); }
    void setLaskupohjaID(qint64 v) { aseta(1, qlonglong(v)); }
    int Jarjestys() const { return int(luku(2)); }
    void setJarjestys(int v) { aseta(2, v); }
    int Laskutyyppi() const { return int(luku(3)); }
    void setLaskutyyppi(int v) { aseta(3, v); }

    bool Paalla() const { return totuus(4); }
    void setPaalla(bool v) { aseta(4, v); }
    QString Aiheteksti() const { return teksti(5); }
    void setAiheteksti(const QString &v) { aseta(5, v); }
    Currency Hinta() const { return raha(6); }
    void setHinta(Currency v) { aseta(6, qlonglong(v.raw())); }

    bool PerhePaalla() const { return totuus(7); }
    void setPerhePaalla(bool v) { aseta(7, v); }
    Currency PerheAhinta() const { return raha(8); }
    void setPerheAhinta(Currency v) { aseta(8, qlonglong(v.raw())); }
    QString PerheAiheteksti() const { return teksti(9); }
    void setPerheAiheteksti(const QString &v) { aseta(9, v); }
    bool PerheNimet() const { return totuus(10); }
    void setPerheNimet(bool v) { aseta(10, v); }
    bool PerheNollat() const { return totuus(11); }
    void setPerheNollat(bool v) { aseta(11, v); }

    qint64 OmPiId() const { return luku(12); }
    void setOmPiId(qint64 v) { aseta(12, qlonglong(v)); }
    bool OmLkm() const { return totuus(13); }
    void setOmLkm(bool v) { aseta(13, v); }
    Currency OmAhinta() const { return raha(14); }
    void setOmAhinta(Currency v) { aseta(14, qlonglong(v.raw())); }
    bool OmHinta() const { return totuus(15); }
    void setOmHinta(bool v) { aseta(15, v); }
    double OmLkmMaara() const { return liuku(16); }
    void setOmLkmMaara(double v) { aseta(16, v); }
    Currency OmMinimi() const { return raha(17); }
    void setOmMinimi(Currency v) { aseta(17, qlonglong(v.raw())); }
    bool OmNollat() const { return totuus(18); }
    void setOmNollat(bool v) { aseta(18, v); }
    QString OmAiheteksti() const { return teksti(19); }
    void setOmAiheteksti(const QString &v) { aseta(19, v); }

protected:
    // A row whose template has no id yet is not written: the template writes it when it gets one.
    bool voiTallentaa() const override { return LaskupohjaID() != 0; }

private:
    friend class cLaskupohjaRivit;
    friend class cLaskupohja;
};

// The rows of a template as read: every row of the template, or only those of one kind and
// position (-1 leaves the condition out), in the order they were made. Entries are keyed "I" + id.
class cLaskupohjaRivit {
public:
    cLaskupohjaRivit();
    ~cLaskupohjaRivit();
    // Each row opens its own connection on `polku` later.
    void Lataa(const QString &polku, qint64 laskupohjaId, int laskutyyppi = -1, int jarjestys = -1);
    // Read through `yhteys`, which the rows are lent (it must outlive them).
    void Lataa(db::Database &yhteys, qint64 laskupohjaId, int laskutyyppi = -1, int jarjestys = -1);

    int Count() const { return int(m_rivit.size()); }
    // 0-based.
    cLaskupohjaRivi &Item(int indeksi) const { return *m_rivit.at(size_t(indeksi)); }
    // By key "I" + id; nullptr when there is none.
    cLaskupohjaRivi *Item(const QString &avain) const;
    // Takes a row out of the collection for a holder of its own.
    std::unique_ptr<cLaskupohjaRivi> Irrota(int indeksi);

private:
    void lataa(db::Database &d, const QString &polku, db::Database *lainattu, qint64 laskupohjaId, int laskutyyppi,
               int jarjestys);
    std::vector<std::unique_ptr<cLaskupohjaRivi>> m_rivit;
};
