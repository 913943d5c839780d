// Where the layout takes its rows from: all fetched at once, or read from the database one
// outermost group at a time so that a batch of any size never sits in memory whole.
#pragma once

#include "reports/Lauseke.h"

class Rivilahde {
public:
    virtual ~Rivilahde() = default;
    // Every row the report is made of.
    virtual int riveja() const = 0;
    // The next rows: whole outermost groups, valid until the next call. Nothing at the end.
    virtual const Rivisto *seuraava() = 0;
    // True when the rows last given were the last.
    virtual bool lopussa() const = 0;
    // Back to the first row, for another pass.
    virtual void alusta() = 0;
};

// The rows fetched whole, given in one piece.
class KokoRivisto : public Rivilahde {
public:
    explicit KokoRivisto(const Rivisto &r) : m_r(r) {}
    int riveja() const override { return m_r.riveja; }
    const Rivisto *seuraava() override
    {
        if (m_annettu)
            return nullptr;
        m_annettu = true;
        return &m_r;
    }
    bool lopussa() const override { return m_annettu; }
    void alusta() override { m_annettu = false; }

private:
    const Rivisto &m_r;
    bool m_annettu = false;
};
