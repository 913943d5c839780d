#include "members/ui/NimipuuMalli.h"

// A letter node has internal id 0; a member node carries its letter + 1.

void NimipuuMalli::aseta(Nimipuu puu)
{
    beginResetModel();
    m_puu = std::move(puu);
    m_maarat.clear();
    for (const QVector<int> &j : std::as_const(m_puu.juuret))
        m_maarat.append(int(j.size()));
    endResetModel();
}

qint64 NimipuuMalli::jasenId(const QModelIndex &i) const
{
    if (!i.isValid() || i.internalId() == 0)
        return 0;
    const QVector<int> &juuri = m_puu.juuret[int(i.internalId()) - 1];
    return i.row() < juuri.size() ? m_puu.nimet[juuri[i.row()]].jrId : 0;
}

void NimipuuMalli::poistaJasen(qint64 jrId)
{
    for (int j = 0; j < m_puu.juuret.size(); ++j) {
        QVector<int> &juuri = m_puu.juuret[j];
        for (int r = 0; r < juuri.size(); ++r) {
            if (m_puu.nimet[juuri[r]].jrId != jrId)
                continue;
            beginRemoveRows(index(j, 0), r, r);
            juuri.remove(r);
            endRemoveRows();
            return;
        }
    }
}

QModelIndex NimipuuMalli::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0)
        return {};
    if (!parent.isValid())
        return row < m_puu.juuret.size() ? createIndex(row, 0, quintptr(0)) : QModelIndex();
    if (parent.internalId() != 0 || row >= m_puu.juuret[parent.row()].size())
        return {};
    return createIndex(row, 0, quintptr(parent.row() + 1));
}

QModelIndex NimipuuMalli::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(int(child.internalId()) - 1, 0, quintptr(0));
}

int NimipuuMalli::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_puu.juuret.size());
    if (parent.internalId() != 0)
        return 0;
    return int(m_puu.juuret[parent.row()].size());
}

int NimipuuMalli::columnCount(const QModelIndex &) const { return 1; }

QVariant NimipuuMalli::data(const QModelIndex &i, int role) const
{
    if (!i.isValid() || role != Qt::DisplayRole)
        return {};
    if (i.internalId() == 0)
        return NimipuunJuurenTeksti(i.row(), m_maarat.value(i.row()));
    const QVector<int> &juuri = m_puu.juuret[int(i.internalId()) - 1];
    return i.row() < juuri.size() ? m_puu.nimet[juuri[i.row()]].teksti() : QVariant();
}

void NimiListaMalli::aseta(QVector<NimiRivi> nimet)
{
    beginResetModel();
    m_nimet = std::move(nimet);
    endResetModel();
}

qint64 NimiListaMalli::jasenId(int rivi) const { return rivi >= 0 && rivi < m_nimet.size() ? m_nimet[rivi].jrId : 0; }

QString NimiListaMalli::teksti(int rivi) const { return rivi >= 0 && rivi < m_nimet.size() ? m_nimet[rivi].teksti() : QString(); }

int NimiListaMalli::rowCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : int(m_nimet.size()); }

QVariant NimiListaMalli::data(const QModelIndex &i, int role) const
{
    if (role != Qt::DisplayRole || !i.isValid())
        return {};
    return teksti(i.row());
}
