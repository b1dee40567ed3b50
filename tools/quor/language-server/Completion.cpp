#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ICellPropertyInfo.h"
#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tools/quor/language-server/Descriptions.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/PathCompletion.h"
#include "tools/quor/language-server/Snippets.h"
#include "tools/quor/language-server/TextContext.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

constexpr std::size_t mostItems = 300;

/// As the protocol numbers what is offered.
enum class ItemKind { Keyword = 14, Choice = 20, Name = 6, Array = 5, Value = 12 };

bool StartsLike(const std::string& text, const std::string& upperPrefix)
{
    return ToUpper(text.substr(0, upperPrefix.size())) == upperPrefix;
}

/// Collects what is offered at a position.
class Completions {
public:
    Completions(Session& session, const View& view, std::size_t offset)
        : session_(session)
        , view_(view)
        , target_(view.places ? view.GetDeck().GetOptions().GetTarget() : session.GetSettings().GetTarget())
        , context_(FindContext(session, view, offset))
        , offset_(offset)
    {
    }

    Json Make();

private:
    void AddKeywords(const std::string& prefix);
    bool IsOffered(const IKeywordSyntax& syntax, const std::string& name) const;
    void AddData();
    void AddChoices(const IKeywordChoiceMD& md);
    void AddKeys(const IKeywordMapMD& map);
    void AddNames();
    void AddNamesOf(std::size_t kind);
    void AddArrays(std::size_t kind);
    void AddWord(const std::string& word, ItemKind kind, const std::string& detail);
    std::string Written(const std::string& word) const;
    ByteRange WordRange() const;
    char Quote() const;

    Session& session_;
    const View& view_;
    Decks::Target target_; // of the deck, or as the editor sets it before a deck was read
    TextContext context_;
    std::size_t offset_;
    Json items_ = Json::array();
    std::set<std::string> offered_;
    bool isCut_ = false;
};

Json Completions::Make()
{
    const std::string_view text = view_.GetText();
    const std::string before(text.substr(context_.lineOffset, offset_ - context_.lineOffset));
    const bool isWord = std::all_of(
        before.begin(), before.end(), [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; });
    if (!context_.isComment && !context_.cursor.isOutside)
        AddData();
    if (isWord)
        AddKeywords(ToUpper(before));
    return {{"isIncomplete", isCut_}, {"items", std::move(items_)}};
}

bool Completions::IsOffered(const IKeywordSyntax& syntax, const std::string& name) const
{
    if (context_.section == SectionType::None)
        return !syntax.GetSummaryMnemonicInfo();
    return KeywordSyntaxUtils::IsValid(syntax, name, context_.section, target_.simulator, target_.mode);
}

void Completions::AddKeywords(const std::string& prefix)
{
    const Json range = ToJson(view_.SpanOf({context_.lineOffset, offset_ - context_.lineOffset}));
    const bool hasSnippets = session_.GetAbilities().hasSnippets;
    for (const auto& [name, syntax] : session_.GetKeywords()) {
        if (!StartsLike(name, prefix) || !IsOffered(*syntax, name))
            continue;
        isCut_ = items_.size() >= mostItems;
        if (isCut_)
            return;
        Json item = {{"label", name}, {"kind", ItemKind::Keyword}, {"data", {{"keyword", name}}},
            {"insertTextFormat", hasSnippets ? 2 : 1},
            {"textEdit", {{"range", range}, {"newText", hasSnippets ? SnippetOf(*syntax, name) : name}}}};
        if (const std::string description = syntax->GetDescription(); !description.empty())
            item["detail"] = description;
        items_.push_back(std::move(item));
    }
}

void Completions::AddData()
{
    if (context_.cursor.map)
        AddKeys(*context_.cursor.map);
    if (context_.syntax->GetDeckRole() == KeywordDeckRole::Include) {
        isCut_ = AddPaths(items_, view_, WordRange(), Quote(), std::string(context_.cursor.prefix));
        return;
    }
    const IKeywordDataMD* const md = context_.cursor.md;
    if (!md)
        return;
    if (md->GetType() == IKeywordDataMD::MDType::Choice)
        AddChoices(static_cast<const IKeywordChoiceMD&>(*md));
    if (md->GetType() == IKeywordDataMD::MDType::Boolean) {
        AddWord("YES", ItemKind::Choice, "");
        AddWord("NO", ItemKind::Choice, "");
    }
    if (view_.places)
        AddNames();
}

void Completions::AddChoices(const IKeywordChoiceMD& md)
{
    for (int i = 0; i < md.NumChoices(); ++i) {
        if (target_.simulator == SimulatorType::Any
            || md.GetValidity(i).IsValid(target_.simulator, target_.mode))
            AddWord(md.GetChoice(i), ItemKind::Choice, "");
    }
}

void Completions::AddKeys(const IKeywordMapMD& map)
{
    for (int i = 0; i < map.GetSize(); ++i) {
        for (const std::string& key : map.GetItemMD(i)->GetKeys())
            AddWord(key, ItemKind::Choice, map.GetItemMD(i)->GetDescription());
    }
}

/// Names of the kinds that the rules say of the item.
void Completions::AddNames()
{
    const DataCursor& cursor = context_.cursor;
    const std::string item = cursor.record && cursor.item < cursor.record->GetSize()
        ? cursor.record->GetItemMD(cursor.item)->GetName()
        : "";
    for (const NamedItem& named : view_.GetState().GetNameRules().Get(*context_.syntax)) {
        if (named.item != item)
            continue;
        AddNamesOf(named.kind);
        AddArrays(named.kind);
    }
}

void Completions::AddNamesOf(std::size_t kind)
{
    const std::string& noun = view_.GetState().GetNameRules().GetKinds()[kind];
    for (const DeckName& name : view_.GetState().GetNames().GetNames()) {
        if (name.kind == kind && name.isDefined)
            AddWord(name.text, ItemKind::Name, noun);
    }
}

/// The arrays that the deck has, if the deck uses the names of arrays as names of this kind.
void Completions::AddArrays(std::size_t kind)
{
    const auto isArray = [this](const std::string& name) {
        const IKeywordSyntax* const syntax = session_.GetTable().Lookup(ToUpper(name), false);
        return syntax && syntax->GetCellPropertyInfo();
    };
    const auto& names = view_.GetState().GetNames().GetNames();
    const bool areArrays = std::any_of(names.begin(), names.end(),
        [&](const DeckName& name) { return name.kind == kind && isArray(name.text); });
    if (!areArrays)
        return;
    for (const Decks::DeckKeyword keyword : view_.GetDeck()) {
        if (keyword.GetSyntax().GetCellPropertyInfo())
            AddWord(keyword.GetName(), ItemKind::Array, keyword.GetSyntax().GetDescription());
    }
}

/// The word at the cursor, and a quote that an editor has closed.
ByteRange Completions::WordRange() const
{
    const std::size_t begin = context_.dataOffset + context_.cursor.wordOffset;
    const std::string_view text = view_.GetText();
    const bool closes = context_.cursor.isQuoted && offset_ < text.size() && text[offset_] == text[begin];
    return {begin, offset_ - begin + (closes ? 1 : 0)};
}

/// The one before the word at the cursor; without it that which decks mostly have.
char Completions::Quote() const
{
    return view_.GetText().substr(WordRange().offset).starts_with('"') ? '"' : '\'';
}

/// In quotes if it needs them, or one is there. Empty if no quotes can hold it.
std::string Completions::Written(const std::string& word) const
{
    const bool isPlain = !word.empty() && std::isalnum(static_cast<unsigned char>(word.front())) != 0
        && std::all_of(word.begin(), word.end(), [](unsigned char c) {
               return std::isalnum(c) != 0
                   || std::string_view("_-+.").find(static_cast<char>(c)) != std::string_view::npos;
           });
    return isPlain && !context_.cursor.isQuoted ? word : InQuotes(word, Quote());
}

void Completions::AddWord(const std::string& word, ItemKind kind, const std::string& detail)
{
    const bool isBlank = word.find_first_not_of(' ') == std::string::npos;
    if (isBlank || !StartsLike(word, ToUpper(std::string(context_.cursor.prefix)))
        || !offered_.insert(ToUpper(word)).second)
        return;
    isCut_ = isCut_ || items_.size() >= mostItems;
    if (isCut_)
        return;
    const std::string written = Written(word);
    if (written.empty())
        return;
    const std::string sought = context_.cursor.isQuoted ? Quote() + word + Quote() : written;
    Json item = {{"label", word}, {"kind", kind}, {"filterText", sought},
        {"textEdit", {{"range", ToJson(view_.SpanOf(WordRange()))}, {"newText", written}}}};
    if (!detail.empty())
        item["detail"] = detail;
    items_.push_back(std::move(item));
}

} // namespace

Json Completion(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    return Completions(session, view, view.OffsetOf(PositionIn(params.at("position")))).Make();
}

Json ResolveCompletion(Session& session, const Json& params)
{
    Json item = params;
    const Json& keyword = MemberAt(params, {"data", "keyword"});
    const IKeywordSyntax* const syntax =
        keyword.is_string() ? session.GetTable().Lookup(keyword.get<std::string>(), true) : nullptr;
    if (syntax)
        item["documentation"] = {{"kind", "markdown"},
            {"value", DescriptionOf(*syntax, keyword.get<std::string>(), UnitSystem::METRIC)}};
    return item;
}

} // namespace Veld::Quor::Tools::LanguageServer
