#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/Target.h"
#include "quor/foundation/SectionType.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordMD;
}

namespace Veld::Quor::Tools {

/// Makes the text of a deck of what is met in a dump, keyword by keyword, so that no more than one is in
/// memory. Functions throw `std::invalid_argument`, or what data throw, for what no deck can hold.
class DeckBuilder {
public:
    /// A value of JSON that is no array and no object; nothing: null.
    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

    /// `take` gets the text of each keyword.
    DeckBuilder(Core::Keywords::KeywordSyntaxTable& table, const Core::Decks::Target& target,
        std::function<void(std::string&&)> take);

    void Take(const Value& value);
    void Key(const std::string& name);
    void StartObject();
    void StartArray();
    void End();

    /// "keyword 3 (PORO)": where it is; empty outside keywords.
    std::string GetPlace() const;
    /// Of the keyword that it is in; empty before its 'name'.
    const std::string& GetName() const { return name_; }
    /// Whether there was an array of keywords.
    bool IsWhole() const { return isWhole_; }

private:
    enum class Kind { Top, Keywords, Keyword, Data, Latin1 };
    struct Frame {
        Kind kind;
        Core::Keywords::IKeywordData* data = nullptr;
        std::string key = {}; // the member that comes next
        int item = -1; // of a record: which that is
    };

    void TakeOfKeyword(const Value& value);
    void TakeData(const Value& value);
    void TakeItem(Core::Keywords::IKeywordData& record, int item, const Value& value) const;
    void TakeElement(Core::Keywords::IKeywordData& list, const Value& value) const;
    void Start(bool isObject);
    void StartData(bool isObject);
    Core::Keywords::IKeywordData* Inner(bool isObject);
    void MakeData();
    void EndKeyword();
    int ItemOf(const Core::Keywords::IKeywordRecordMD& md, const std::string& name);

    Core::Keywords::KeywordSyntaxTable& table_;
    Core::Decks::Target target_;
    std::function<void(std::string&&)> take_;
    std::vector<Frame> frames_;
    std::unordered_map<const Core::Keywords::IKeywordRecordMD*, std::unordered_map<std::string, int>> items_;
    bool isWhole_ = false;

    std::size_t number_ = 0; // of the keyword, from 1
    std::string name_;
    Core::Keywords::SectionType::Enum section_ = Core::Keywords::SectionType::None;
    const Core::Keywords::IKeywordSyntax* syntax_ = nullptr; // of the keyword; null until data or the end
    std::unique_ptr<Core::Keywords::IKeywordData> data_;
};

} // namespace Veld::Quor::Tools
