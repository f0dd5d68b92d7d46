#pragma once

#include <QString>
#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace kxbench {

// Seconds one call of work takes.
inline double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The connection string of a product for the run, or empty when its server is not there.
QString connectionString(const QString &product, const QString &scratchFolder);

} // namespace kxbench
