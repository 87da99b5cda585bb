#pragma once

#include "service/Delegates.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <memory>
#include <string>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// What a reader over one file holds: the file's name, and what is made from it at the first question. Derived is the
/// reader's implementation; the rest of what it keeps goes in its forgetAnswers().
template <class Derived, class Index, class Loader>
class ReaderState
{
public:
    /// Forgets the file that was read before, and builds the index of this one. If that throws, the reader is left
    /// without a file.
    void read(const std::string& fileName)
    {
        Service::FileName file(fileName); // first, since the text may be one of the answers
        forgetFile();
        file_ = std::move(file);
        Service::DelegateBase guard(Service::onDestruction(*this, &ReaderState::forgetFile));
        index();
        guard.Disarm();
    }

    const Service::FileName& file() const { return file_; }

    const Index& index()
    {
        if (!index_)
            index_ = std::make_unique<Index>(file_);
        return *index_;
    }

    Loader& loader()
    {
        if (!loader_)
            loader_ = std::make_unique<Loader>(index());
        return *loader_;
    }

private:
    void forgetFile()
    {
        static_cast<Derived*>(this)->forgetAnswers();
        loader_.reset();
        index_.reset();
        file_ = Service::FileName();
    }

    Service::FileName file_;
    std::unique_ptr<Index> index_;
    std::unique_ptr<Loader> loader_;
};

} // namespace Kvt::Mrl::MrlIO
