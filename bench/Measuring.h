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

// How long one comparison is repeated: twice at least, since machines drift, until it has settled, or until that much
// time is over.
class Budget {
  public:
    explicit Budget(int fewest = 2) : fewest_(fewest) {}

    bool AllowsAnother(bool settled) {
        constexpr auto longest = std::chrono::seconds(8);
        return rounds_++ < fewest_ || (!settled && std::chrono::steady_clock::now() - begun_ < longest);
    }

  private:
    const int fewest_;
    const std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
    int rounds_ = 0;
};

class Pairs {
  public:
    void Add(double ours, double reference) {
        ours_.push_back(ours);
        references_.push_back(reference);
        ratios_.push_back(ours / reference);
    }

    // The ratios agree so well that another pair would change little.
    bool IsSettled() const {
        constexpr size_t fewest = 3;
        constexpr double spread = 0.03;
        const auto [least, most] = std::minmax_element(ratios_.begin(), ratios_.end());
        return ratios_.size() >= fewest && *most - *least <= spread * Median(ratios_);
    }

    double MedianReference() const { return Median(references_); }

    // A line for bench/table: what, size, unit, ours, the reference, and the median of the pairs' ratios.
    void Print(const char* what, const char* size, const char* unit) const {
        std::printf("%s\t%s\t%s\t%.6g\t%.6g\t%.6g\n", what, size, unit, Median(ours_), Median(references_),
                    Median(ratios_));
        std::fflush(stdout);
    }

  private:
    static double Median(std::vector<double> values) {
        std::sort(values.begin(), values.end());
        const size_t middle = values.size() / 2;
        return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
    }

    std::vector<double> ours_;
    std::vector<double> references_;
    std::vector<double> ratios_;
};

}  // namespace bench
