// Times taken in pairs, ours and the reference's in turn, so that a machine whose speed drifts favours
// neither.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace bench {

template <class Work>
double Milliseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

class Pairs {
  public:
    void Add(double ours, double reference) {
        ours_.push_back(ours);
        references_.push_back(reference);
        ratios_.push_back(ours / reference);
    }

    // A line for bench/table: what, size, unit, ours, the reference, and the median of the pairs' ratios.
    void Print(const char* what, const char* size, const char* unit) const {
        std::printf("%s\t%s\t%s\t%.6g\t%.6g\t%.6g\n", what, size, unit, Median(ours_), Median(references_),
                    Median(ratios_));
        std::fflush(stdout);
    }

  private:
    static double Median(std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    }

    std::vector<double> ours_;
    std::vector<double> references_;
    std::vector<double> ratios_;
};

}  // namespace bench
