#include "quor/lint/internal/PrecedentCycles.h"

#include <fmt/format.h>

#include <string_view>
#include <unordered_map>

namespace Veld::Quor::Core::Lint {

namespace {

/// A precedent of a keyword, and the definition that it names.
struct Step {
    const Definition* from;
    const Element* precedent;
    std::size_t to;
};

std::vector<std::vector<Step>> ListSteps(const std::vector<Definition>& definitions)
{
    std::unordered_map<std::string_view, std::size_t> byName;
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        byName.try_emplace(definitions[i].keyword->Get("name"), i);
        ForEachAlias(
            *definitions[i].keyword, [&](const Element& alias) { byName.try_emplace(alias.Get("name"), i); });
    }
    std::vector<std::vector<Step>> steps(definitions.size());
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        for (const Element& child : definitions[i].keyword->children) {
            if (child.tag != "precedents")
                continue;
            ForEachBelow(child, "precedent", [&](const Element& precedent) {
                const auto at = byName.find(precedent.Get("name"));
                if (at != byName.end() && precedent.Find("name"))
                    steps[i].push_back({&definitions[i], &precedent, at->second});
            });
        }
    }
    return steps;
}

} // namespace

void CheckCycles(const std::vector<Definition>& definitions)
{
    enum class State { New, Open, Done };
    struct Visit {
        std::size_t keyword;
        std::size_t step = 0;
    };
    const auto steps = ListSteps(definitions);
    std::vector<State> states(definitions.size(), State::New);
    for (std::size_t start = 0; start < definitions.size(); ++start) {
        std::vector<Visit> path; // no recursion: it may be as long as there are keywords
        const auto enter = [&](std::size_t keyword) {
            states[keyword] = State::Open;
            path.push_back({keyword});
        };
        if (states[start] == State::New)
            enter(start);
        while (!path.empty()) {
            Visit& visit = path.back();
            if (visit.step == steps[visit.keyword].size()) {
                states[visit.keyword] = State::Done;
                path.pop_back();
                continue;
            }
            const Step& step = steps[visit.keyword][visit.step++];
            if (states[step.to] == State::New)
                enter(step.to);
            else if (states[step.to] == State::Open)
                step.from->reporter.Report(Code::PrecedentCycle, step.precedent->Find("name")->valueSpan,
                    step.to == visit.keyword
                        ? "the keyword is its own precedent"
                        : fmt::format("circular precedents: the keyword is a precedent of {}",
                            Quoted(step.precedent->Get("name"))),
                    "remove the precedent");
        }
    }
}

} // namespace Veld::Quor::Core::Lint
