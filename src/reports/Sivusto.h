// Laid-out pages kept aside and read back one at a time: the preview shows, prints and saves a
// report from here. A report of a whole invoice batch lives in a temporary file with an index of
// where each page begins, so memory stays the same for ten pages or a hundred thousand.
#pragma once

#include "reports/Asiakirja.h"

#include <QTemporaryFile>
#include <memory>

class Sivusto {
public:
    virtual ~Sivusto() = default;
    // The document without its pages: name, paper, fonts and rows.
    virtual const Asiakirja &pohja() const = 0;
    virtual int sivuja() const = 0;
    // Page `i` (0-based); an empty page outside the document.
    virtual Sivu sivu(int i) const = 0;
};

// A document held in memory (a small report, a user's column report, tests).
class Muistisivusto : public Sivusto {
public:
    explicit Muistisivusto(const Asiakirja &d) : m_d(d) {}
    const Asiakirja &pohja() const override { return m_d; }
    int sivuja() const override { return int(m_d.sivut.size()); }
    Sivu sivu(int i) const override;

private:
    const Asiakirja &m_d; // must outlive this object
};

// Pages written to a temporary file as the layout hands them on. Throws RaporttiVirhe when the
// file cannot be written or read back.
class Sivutiedosto : public Sivusto, public Sivuvirta {
public:
    Sivutiedosto();

    void alku(const Asiakirja &pohja) override;
    void sivu(Sivu &&sivu) override;
    void loppu(int riveja) override;

    const Asiakirja &pohja() const override { return m_pohja; }
    int sivuja() const override { return int(m_alut.size()); }
    Sivu sivu(int i) const override;

private:
    [[noreturn]] void virhe() const;

    Asiakirja m_pohja;
    mutable QTemporaryFile m_tiedosto;
    std::vector<qint64> m_alut; // where each page begins in the file
    qint64 m_loppu = 0;
};
