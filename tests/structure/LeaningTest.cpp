// A file includes what it uses itself, or a header of its own that does. Most files are compiled several in a piece and
// with the standard headers compiled beforehand, so that the compiler does not tell.

#include "SourceFiles.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using SourceMap = std::map<std::string, const Source*>;

SourceMap ByName(const std::vector<Source>& sources) {
    SourceMap byName;
    for (const Source& source : sources) {
        byName[source.Name()] = &source;
    }
    return byName;
}

/// The file, the project's headers that it takes in, and theirs; standard headers among them.
void Closure(const SourceMap& byName, const std::string& name, std::set<std::string>& seen) {
    static const std::regex include(R"re(^#include ["<]([^">]+)[">])re");
    if (!seen.insert(name).second || !byName.contains(name)) {
        return;
    }
    for (const std::string& line : byName.at(name)->Lines) {
        std::smatch match;
        if (line.starts_with("#include") && std::regex_search(line, match, include)) {
            Closure(byName, match[1], seen);
        }
    }
}

std::set<std::string> Closure(const SourceMap& byName, const std::string& name) {
    std::set<std::string> seen;
    Closure(byName, name, seen);
    return seen;
}

/// Names of the standard headers that are compiled once for all files. Algorithms stand as calls, "find(".
const std::map<std::string, std::vector<std::string>> StandardNames{
    {"algorithm",
     {"sort(",   "stable_sort(", "find(",     "find_if(",     "copy(",        "copy_n(",     "copy_if(", "fill(",
      "fill_n(", "any_of(",      "all_of(",   "none_of(",     "min(",         "max(",        "clamp(",   "transform(",
      "count(",  "count_if(",    "replace(",  "equal(",       "rotate(",      "remove_if(",  "search(",  "reverse(",
      "unique(", "lower_bound(", "for_each(", "min_element(", "max_element(", "upper_bound("}},
    {"array", {"array", "to_array"}},
    {"cstdint", {"uint8_t", "uint16_t", "uint32_t", "uint64_t", "int8_t", "int16_t", "int32_t", "int64_t"}},
    {"functional", {"function", "less", "greater", "plus", "ref", "cref"}},
    {"map", {"map", "multimap"}},
    {"memory", {"unique_ptr", "shared_ptr", "weak_ptr", "make_unique", "make_shared"}},
    {"optional", {"optional", "nullopt"}},
    {"string", {"string", "to_string"}},
    {"vector", {"vector"}},
};

/// What stands behind each "std::" of a file: the name, and the name with its bracket where it is called.
std::set<std::string> StandardNamesOf(const Source& source) {
    std::set<std::string> names;
    for (const std::string& line : source.Lines) {
        if (line.find("std::") == std::string::npos) {
            continue;
        }
        const std::string code = Code(line);
        for (auto at = code.find("std::"); at != std::string::npos; at = code.find("std::", at + 1)) {
            const auto begin = at + 5;
            const auto end = std::find_if(code.begin() + static_cast<std::ptrdiff_t>(begin), code.end(),
                                          [](unsigned char c) { return std::isalnum(c) == 0 && c != '_'; });
            const std::string name(code.begin() + static_cast<std::ptrdiff_t>(begin), end);
            names.insert(name);
            names.insert(end != code.end() && *end == '(' ? name + "(" : name);
        }
    }
    return names;
}

std::vector<std::string> MissingHeaders(const std::vector<Source>& sources) {
    const SourceMap byName = ByName(sources);
    std::vector<std::string> missing;
    for (const Source& source : sources) {
        const std::set<std::string> headers = Closure(byName, source.Name());
        const auto used = StandardNamesOf(source);
        for (const auto& [header, names] : StandardNames) {
            const bool taken = std::any_of(names.begin(), names.end(),
                                           [&used](const std::string& name) { return used.contains(name); });
            if (taken && !headers.contains(header)) {
                missing.push_back(source.Name() + ": " + header);
            }
        }
    }
    return missing;
}

TEST(Sources, what_a_file_takes_of_the_compiled_headers_it_includes) {
    EXPECT_EQ(MissingHeaders(All()), std::vector<std::string>{});
}

TEST(Sources, a_standard_header_that_is_leant_on_is_found) {
    const std::vector<Source> sources{{.Path = "a.h", .Folder = "core", .Lines = {"#include <vector>"}},
                                      {.Path = "b.cpp",
                                       .Folder = "core",
                                       .Lines = {"#include \"a.h\"", "std::vector<int> v; std::map<int, int> m;"}}};
    EXPECT_EQ(MissingHeaders(sources), std::vector<std::string>{"b.cpp: map"});
}

/// Also names of other things, which no declaration in their file tells apart.
const std::set<std::string> Ambiguous{"Name", "List", "Immer"};

/// Types, routines and name spaces that one header alone declares at the left margin, with that header.
std::map<std::string, const Source*> OwnNames(const std::vector<Source>& sources) {
    static const std::regex type(R"(^(?:class|struct|enum class|enum|namespace) (\w+)[^;]*$)");
    static const std::regex routine(
        R"(^(?!return|using|#|namespace|class|struct|enum|template)[\w:<>,&*\s]+[\s&*](\w+)\()");
    static const std::regex words(R"([A-Z]\w{2,})");
    std::map<std::string, std::set<const Source*>> found;
    for (const Source& source : sources) {
        for (const std::string& line : source.Lines) {
            std::smatch match;
            const bool margin = source.Path.extension() == ".h" && !line.empty() && line[0] != ' ';
            const std::string code = margin ? Code(line) : std::string();
            if (margin && (std::regex_search(code, match, type) || std::regex_search(code, match, routine)) &&
                std::regex_match(match[1].str(), words)) {
                found[match[1]].insert(&source);
            }
        }
    }
    std::map<std::string, const Source*> names;
    for (const auto& [name, headers] : found) {
        if (headers.size() == 1 && !Ambiguous.contains(name)) {
            names[name] = *headers.begin();
        }
    }
    return names;
}

/// The names that a file uses on their own: not behind a dot, an arrow or a scope.
std::set<std::string> UsedNames(const std::string& text) {
    std::set<std::string> names;
    for (std::size_t at = 0; at < text.size();) {
        const auto word = [&text](std::size_t n) {
            return n < text.size() && (std::isalnum(static_cast<unsigned char>(text[n])) != 0 || text[n] == '_');
        };
        if (!word(at)) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (word(end)) {
            ++end;
        }
        const char before = at == 0 ? ' ' : text[at - 1];
        if (before != '.' && before != '>' && before != ':' &&
            std::isupper(static_cast<unsigned char>(text[at])) != 0) {
            names.insert(text.substr(at, end - at));
        }
        at = end;
    }
    return names;
}

std::string Text(const Source& source) {
    std::string text;
    for (const std::string& line : source.Lines) {
        text += Code(line) + "\n";
    }
    return text;
}

/// True when the text declares the name itself: a type that is only named, a hook, a value of an
/// enumeration, a member or a routine of a class.
bool DeclaredIn(const std::string& text, const std::string& name) {
    return std::regex_search(text, std::regex("\\n +(static )?(?!return)[\\w:<>,&*]+ " + name + "\\(")) ||
           std::regex_search(text, std::regex("(struct|class|enum class|enum|namespace) " + name + "\\b")) ||
           std::regex_search(text, std::regex("[>&*\\w,{\n] *" + name + "(;|,| =| ?\\{)"));
}

/// "file: name" for every name of another header that a file uses without taking that header in.
std::vector<std::string> MissingOwnHeaders(const std::vector<Source>& sources) {
    const SourceMap byName = ByName(sources);
    const auto names = OwnNames(sources);
    std::vector<std::string> missing;
    for (const Source& source : sources) {
        const std::set<std::string> headers = Closure(byName, source.Name());
        for (const std::string& used : UsedNames(Text(source))) {
            const auto found = names.find(used);
            if (found == names.end() || headers.contains(found->second->Name()) ||
                !MayInclude(source.Folder, found->second->Folder)) {
                continue;
            }
            const bool declared = std::any_of(headers.begin(), headers.end(), [&](const std::string& header) {
                return byName.contains(header) && DeclaredIn(Text(*byName.at(header)), used);
            });
            if (!declared) {
                missing.push_back(source.Name() + ": " + used);
            }
        }
    }
    return missing;
}

TEST(Sources, what_a_file_uses_of_the_project_it_includes) {
    EXPECT_EQ(MissingOwnHeaders(All()), std::vector<std::string>{});
}

TEST(Sources, a_header_of_the_project_that_is_leant_on_is_found) {
    const std::vector<Source> sources{
        {.Path = "a.h", .Folder = "core", .Lines = {"struct UserTable {", "};", "bool Datei_Lesen(int n);"}},
        {.Path = "b.h", .Folder = "core", .Lines = {"#include \"a.h\""}},
        {.Path = "c.cpp", .Folder = "core", .Lines = {"#include \"b.h\"", "UserTable table;"}},
        {.Path = "d.cpp", .Folder = "core", .Lines = {"bool b = Datei_Lesen(1);", "UserTable table;"}},
        {.Path = "e.cpp", .Folder = "core", .Lines = {"struct UserTable;", "void f(UserTable& table);"}}};
    EXPECT_EQ(MissingOwnHeaders(sources), (std::vector<std::string>{"d.cpp: Datei_Lesen", "d.cpp: UserTable"}));
}

} // namespace
} // namespace qvm::test
