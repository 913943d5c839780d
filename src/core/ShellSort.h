// Sorting an index array by the values it points to, with Shell's method (gaps h = 3h + 1).
#pragma once

#include <QVector>
#include <functional>

// Sorts index[0..ylaraja] so that values[index[i]] ascend; the values stay where they are.
// ylaraja < 0 means the whole index array. Not stable, as Shell's method is not.
template <typename T, typename Less = std::less<T>>
void ShellSort(const QVector<T> &values, QVector<int> &index, int ylaraja = -1, Less less = Less())
{
    if (ylaraja < 0 || ylaraja >= index.size())
        ylaraja = int(index.size()) - 1;
    const int n = ylaraja + 1;
    int h = 1;
    while (h <= n / 9)
        h = 3 * h + 1;
    for (; h > 0; h /= 3) {
        for (int i = h; i < n; ++i) {
            const int pidettava = index[i];
            int j = i;
            while (j >= h && less(values[pidettava], values[index[j - h]])) {
                index[j] = index[j - h];
                j -= h;
            }
            index[j] = pidettava;
        }
    }
}
