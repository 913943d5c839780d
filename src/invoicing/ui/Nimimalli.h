// The entries of an invoice window's name box as a model: the box of the largest register
// fills at once, and typing completes against the same rows.
#pragma once

#include "members/Piirteet.h"

#include <QAbstractListModel>

class Nimimalli : public QAbstractListModel {
public:
    explicit Nimimalli(QObject *parent = nullptr) : QAbstractListModel(parent) {}

    void aseta(QVector<ListaRivi> rivit)
    {
        beginResetModel();
        m_rivit = std::move(rivit);
        endResetModel();
    }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rivit.size()); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid() || index.row() >= m_rivit.size())
            return {};
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return m_rivit[index.row()].teksti;
        if (role == Qt::UserRole)
            return m_rivit[index.row()].id;
        return {};
    }

private:
    QVector<ListaRivi> m_rivit;
};
