#pragma once

#include "wellresults/ReaderState.h"
#include "wellresults/hmd/HMDContentIndex.h"
#include "wellresults/hmd/HMDDataLoaderIncremental.h"

#include <mrlio/GRFTParameter.h>

#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The file of a reader, and what the questions about it have brought up.
class HMDReaderImpl : public ReaderState<HMDReaderImpl, HMDContentIndex, HMDDataLoaderIncremental>
{
public:
    const HMDContent& content() { return index().content(); }

    const std::vector<HMDParameter>& parameters() { return listOf(content().parameters, parameters_); }

    const std::vector<std::string>& wellNames() { return listOf(content().wellNames, wellNames_); }

    const std::vector<std::string>& groupNames() { return listOf(content().groupNames, groupNames_); }

private:
    friend class ReaderState<HMDReaderImpl, HMDContentIndex, HMDDataLoaderIncremental>;

    template <class Set, class List>
    static const List& listOf(const Set& set, std::optional<List>& list)
    {
        if (!list)
            list.emplace(set.begin(), set.end());
        return *list;
    }

    void forgetAnswers()
    {
        parameters_.reset();
        wellNames_.reset();
        groupNames_.reset();
    }

    std::optional<std::vector<HMDParameter>> parameters_;
    std::optional<std::vector<std::string>> wellNames_;
    std::optional<std::vector<std::string>> groupNames_;
};

} // namespace Kvt::Mrl::MrlIO
