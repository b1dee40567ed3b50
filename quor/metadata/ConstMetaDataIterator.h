#pragma once

#include "quor/foundation/Export.h"

#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordDataMD;

/// Walks a metadata tree in pre-order: a container, then its content. A list has one item, whatever its data;
/// of a map the named assignments are visited, and not the wildcards. Raw metadata can't be walked. The
/// metadata must outlive the iterator. One thread at a time; copies are independent.
///
///     for (ConstMetaDataIterator it(*syntax->GetDataMD()); it != ConstMetaDataIterator::End(); ++it)
///         Print(it->GetName());
class VELD_QUOR_EXPORT ConstMetaDataIterator {
public:
    /// At the end.
    ConstMetaDataIterator();
    /// At that node, the root of the walk. Throws `Service::Exception` if it is raw.
    explicit ConstMetaDataIterator(const IKeywordDataMD& md);
    ~ConstMetaDataIterator();

    /// The node, the table's; null at the end.
    /// @{
    const IKeywordDataMD* operator*() const { return path_.empty() ? nullptr : path_.back().md; }
    const IKeywordDataMD* operator->() const { return **this; }
    /// @}

    /// The next node; does nothing at the end. Throws `Service::Exception` if that is raw; the iterator is
    /// then at the container of the raw node.
    ConstMetaDataIterator& operator++();

    /// Whether both are at the end, or at the same place of the same tree.
    /// @{
    friend bool operator==(const ConstMetaDataIterator& a, const ConstMetaDataIterator& b)
    {
        return a.path_.size() == b.path_.size() && a.IsSamePath(b);
    }
    friend bool operator!=(const ConstMetaDataIterator& a, const ConstMetaDataIterator& b)
    {
        return !(a == b);
    }
    /// @}

    /// The end of every walk; one object for the whole process.
    static const ConstMetaDataIterator& End();

private:
    struct Step {
        const IKeywordDataMD* md;
        int child; // the one that the next step is at; -1: none yet
    };

    bool IsSamePath(const ConstMetaDataIterator& other) const;
    void Enter(const IKeywordDataMD& md);
    static const IKeywordDataMD* NextChild(Step& step);

    std::vector<Step> path_; // from the root of the walk to the node
};

} // namespace Veld::Quor::Core::Keywords
