#include "PressureSystem.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace waterflood {

namespace {

double dot(const std::vector<double>& a, const std::vector<double>& b)
{
    double sum = 0.0;
    for (std::size_t n = 0; n < a.size(); ++n)
        sum += a[n] * b[n];
    return sum;
}

} // namespace

PressureSystem::PressureSystem(const Grid& grid)
    : strides_{1, static_cast<std::size_t>(grid.nx),
               static_cast<std::size_t>(grid.nx) * static_cast<std::size_t>(grid.ny)},
      diagonal_(grid.cellCount()),
      rightSide_(grid.cellCount()),
      pivots_(grid.cellCount()),
      residual_(grid.cellCount()),
      direction_(grid.cellCount()),
      preconditioned_(grid.cellCount()),
      product_(grid.cellCount())
{
    for (auto& links : links_)
        links.resize(grid.cellCount());
}

void PressureSystem::clear()
{
    std::fill(diagonal_.begin(), diagonal_.end(), 0.0);
    std::fill(rightSide_.begin(), rightSide_.end(), 0.0);
    for (auto& links : links_)
        std::fill(links.begin(), links.end(), 0.0);
    couplings_.clear();
}

void PressureSystem::connect(std::size_t cell, int direction, double transmissibility)
{
    links_[direction][cell] = transmissibility;
    diagonal_[cell] += transmissibility;
    diagonal_[cell + strides_[direction]] += transmissibility;
}

void PressureSystem::addRateCoupling(RateCoupling coupling)
{
    for (std::size_t n = 0; n < coupling.cells.size(); ++n)
        diagonal_[coupling.cells[n]] += coupling.factors[n];
    couplings_.push_back(std::move(coupling));
}

void PressureSystem::factorise()
{
    for (std::size_t cell = 0; cell < diagonal_.size(); ++cell) {
        double pivot = diagonal_[cell];
        for (int d = 0; d < 3; ++d)
            if (cell >= strides_[d]) {
                const double link = links_[d][cell - strides_[d]];
                pivot -= link * link * pivots_[cell - strides_[d]];
            }
        pivots_[cell] = 1.0 / pivot;
    }
}

void PressureSystem::precondition(const std::vector<double>& residual, std::vector<double>& result) const
{
    const std::size_t count = residual.size();
    for (std::size_t cell = 0; cell < count; ++cell) {
        double value = residual[cell];
        for (int d = 0; d < 3; ++d)
            if (cell >= strides_[d])
                value += links_[d][cell - strides_[d]] * result[cell - strides_[d]];
        result[cell] = value * pivots_[cell];
    }
    for (std::size_t cell = count; cell-- > 0;) {
        double value = 0.0;
        for (int d = 0; d < 3; ++d)
            if (cell + strides_[d] < count)
                value += links_[d][cell] * result[cell + strides_[d]];
        result[cell] += value * pivots_[cell];
    }
}

void PressureSystem::multiply(const std::vector<double>& vector, std::vector<double>& result) const
{
    const std::size_t count = vector.size();
    for (std::size_t cell = 0; cell < count; ++cell)
        result[cell] = diagonal_[cell] * vector[cell];
    for (int d = 0; d < 3; ++d)
        for (std::size_t cell = 0; cell + strides_[d] < count; ++cell) {
            const double link = links_[d][cell];
            result[cell] -= link * vector[cell + strides_[d]];
            result[cell + strides_[d]] -= link * vector[cell];
        }
    for (const RateCoupling& coupling : couplings_) {
        double weighted = 0.0;
        for (std::size_t n = 0; n < coupling.cells.size(); ++n)
            weighted += coupling.factors[n] * vector[coupling.cells[n]];
        for (std::size_t n = 0; n < coupling.cells.size(); ++n)
            result[coupling.cells[n]] -= coupling.factors[n] * weighted / coupling.sum;
    }
}

int PressureSystem::solve(std::vector<double>& pressures, double tolerance)
{
    constexpr int mostIterations = 2000;
    factorise();
    multiply(pressures, residual_);
    for (std::size_t n = 0; n < residual_.size(); ++n)
        residual_[n] = rightSide_[n] - residual_[n];
    const double target = tolerance * std::sqrt(dot(rightSide_, rightSide_));
    precondition(residual_, preconditioned_);
    direction_ = preconditioned_;
    double rho = dot(residual_, preconditioned_);
    for (int iteration = 0; iteration < mostIterations; ++iteration) {
        if (std::sqrt(dot(residual_, residual_)) <= target)
            return iteration;
        multiply(direction_, product_);
        const double step = rho / dot(direction_, product_);
        for (std::size_t n = 0; n < pressures.size(); ++n) {
            pressures[n] += step * direction_[n];
            residual_[n] -= step * product_[n];
        }
        precondition(residual_, preconditioned_);
        const double next = dot(residual_, preconditioned_);
        for (std::size_t n = 0; n < direction_.size(); ++n)
            direction_[n] = preconditioned_[n] + next / rho * direction_[n];
        rho = next;
    }
    throw std::runtime_error("the pressure equation has not converged");
}

} // namespace waterflood
