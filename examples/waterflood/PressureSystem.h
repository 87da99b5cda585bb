#pragma once

#include "Reservoir.h"

#include <vector>

namespace waterflood {

/// The linear system of one pressure step on a Cartesian grid: seven diagonals, and for each well under rate control a
/// coupling of the cells it passes through. Symmetric and positive definite; solved by conjugate gradients behind an
/// incomplete Cholesky factorisation of the diagonals.
class PressureSystem
{
public:
    /// A well under rate control, its bottom hole pressure eliminated: it couples its cells by -factor_a * factor_b /
    /// sum.
    struct RateCoupling
    {
        std::vector<std::size_t> cells;
        std::vector<double> factors;
        double sum = 0.0;
    };

    explicit PressureSystem(const Grid& grid);

    void clear();

    void addToDiagonal(std::size_t cell, double value) { diagonal_[cell] += value; }

    void addToRightSide(std::size_t cell, double value) { rightSide_[cell] += value; }

    /// Connects a cell to its neighbour in direction 0, 1 or 2 (x, y, z).
    void connect(std::size_t cell, int direction, double transmissibility);
    void addRateCoupling(RateCoupling coupling);

    /// Improves the pressures given until the residual has fallen below tolerance times the right side; gives the
    /// iterations. Throws std::runtime_error if that doesn't happen.
    int solve(std::vector<double>& pressures, double tolerance);

private:
    void factorise();
    void precondition(const std::vector<double>& residual, std::vector<double>& result) const;
    void multiply(const std::vector<double>& vector, std::vector<double>& result) const;

    std::size_t strides_[3];
    std::vector<double> diagonal_, rightSide_;
    std::vector<double> links_[3]; ///< positive transmissibility to the next cell in each direction
    std::vector<RateCoupling> couplings_;
    std::vector<double> pivots_; ///< inverse pivots of the factorisation
    std::vector<double> residual_, direction_, preconditioned_, product_;
};

} // namespace waterflood
