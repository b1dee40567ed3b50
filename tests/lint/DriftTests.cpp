#include "quor/lint/Lint.h"
#include "quor/lint/internal/DocumentForm.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

using Veld::Quor::Tests::LoadFailureOf;

namespace Veld::Quor::Core::Lint {
namespace {

using Decks::Finding;

const Document& FullDocument()
{
    static const Document document = Document::ReadFile(QUOR_SOURCE_DIR "/tests/lint/full.xml");
    return document;
}

std::vector<Finding> Lint(Document document)
{
    std::vector<Document> documents;
    documents.push_back(std::move(document));
    return LintDocuments(documents, 10).findings.GetKept();
}

/// The text of an element, each child on a line of its own.
std::string Write(const Element& element)
{
    std::string text = "<" + element.tag;
    for (const Attribute& attribute : element.attributes)
        text += " " + attribute.name + "=\"" + attribute.value + "\"";
    text += ">" + (element.children.empty() ? element.text : "\n");
    for (const Element& child : element.children)
        text += Write(child) + "\n";
    return text + "</" + element.tag + ">";
}

/// Calls `use` with each name of an element or attribute below the root, open to change.
template <class Use>
void ForEachName(Element& element, const Use& use)
{
    for (Element& child : element.children) {
        use(child.tag);
        for (Attribute& attribute : child.attributes)
            use(attribute.name);
        ForEachName(child, use);
    }
}

/// All that is there of the form, as "form/name".
void Note(const Element& element, Form form, std::set<std::string>& seen)
{
    const auto head = std::to_string(static_cast<int>(form)) + " <" + FormOf(form).tag + "> ";
    for (const Attribute& attribute : element.attributes)
        seen.insert(head + attribute.name);
    for (const Element& child : element.children) {
        seen.insert(head + "<" + child.tag + ">");
        if (const ChildForm* const known = FormOf(form).FindChild(child.tag))
            Note(child, known->form, seen);
    }
}

TEST(FullDocument, IsCleanAndLoads)
{
    for (const Finding& finding : Lint(Document::ReadText(Write(*FullDocument().GetRoot()), "full.xml")))
        ADD_FAILURE() << finding.location.line << ": " << finding.message;
    std::string content;
    for (const Element& keyword : FullDocument().GetRoot()->children)
        content += Write(keyword) + "\n";
    EXPECT_EQ(LoadFailureOf(content), "loaded");
}

TEST(FullDocument, HasAllOfTheForm)
{
    std::set<std::string> seen;
    Note(*FullDocument().GetRoot(), Form::Root, seen);
    ASSERT_EQ(DocumentForm().size(), static_cast<std::size_t>(Form::Count));
    for (const ElementForm& form : DocumentForm()) {
        const auto head = std::to_string(static_cast<int>(form.form)) + " <" + form.tag + "> ";
        for (const AttributeForm& attribute : form.attributes)
            EXPECT_TRUE(seen.contains(head + attribute.name)) << head << attribute.name;
        for (const ChildForm& child : form.children)
            EXPECT_TRUE(seen.contains(head + "<" + child.tag + ">")) << head << child.tag;
    }
}

TEST(FullDocument, WithAnyNameMisspeltIsNotClean)
{
    Element root = *FullDocument().GetRoot();
    std::size_t names = 0;
    ForEachName(root, [&](std::string& name) {
        ++names;
        name += 'x';
        EXPECT_FALSE(Lint(Document::ReadText(Write(root), "full.xml")).empty()) << name;
        name.pop_back();
    });
    EXPECT_GT(names, 250U);
}

} // namespace
} // namespace Veld::Quor::Core::Lint
