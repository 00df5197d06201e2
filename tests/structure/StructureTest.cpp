// Reads the sources and holds them against the rules of the layers.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path Sources = fs::path(QVM_SOURCE_DIR) / "src";

/// Folder of src/ -> the folders whose headers it may include, itself always among them.
const std::map<std::string, std::set<std::string>> MayInclude{
    {"core", {}},
    {"link", {"core"}},
    {"locks", {"core"}},
    {"persons", {"core", "locks"}},
    {"timemodel", {"core"}},
    {"units", {"core", "locks"}},
    {"transfer", {"core", "link", "locks", "persons", "timemodel", "units"}},
    {"transfer/windows", {"core", "link", "locks", "persons", "timemodel", "units", "transfer"}},
    {"core/windows", {"core", "link"}},
    {"link/windows", {"core", "link", "locks", "persons"}},
    {"programm",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows"}},
    {"platform", {"core"}},
    {"simulator", {"core"}},
    {"simulator/program", {"core", "simulator"}},
    {"console",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform"}},
    {"console/program",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform", "console"}},
    {"ui",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm"}},
    {"ui/program",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform", "ui"}},
};

struct Source {
    fs::path Path;
    std::string Folder;
    std::vector<std::string> Lines;
};

std::vector<Source> All() {
    std::vector<Source> found;
    for (const auto& entry : fs::recursive_directory_iterator(Sources)) {
        const auto ending = entry.path().extension();
        if (ending != ".cpp" && ending != ".h") {
            continue;
        }
        Source source{entry.path(), fs::relative(entry.path().parent_path(), Sources).string(), {}};
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            source.Lines.push_back(line);
        }
        found.push_back(source);
    }
    return found;
}

/// The line without a comment and without the inside of its literals.
std::string Code(const std::string& line) {
    static const std::regex literal(R"("(\\.|[^"\\])*")");
    std::string code = std::regex_replace(line, literal, "\"\"");
    return code.substr(0, code.find("//"));
}

std::string At(const Source& source, std::size_t line) {
    return fs::relative(source.Path, Sources).string() + ":" + std::to_string(line + 1);
}

bool Logic(const std::string& folder) {
    return folder != "platform" && folder.rfind("console", 0) != 0 && folder != "simulator/program" &&
           folder.rfind("ui", 0) != 0;
}

/// Every line of code in the logic that matches `pattern`.
std::vector<std::string> Offenders(const std::vector<Source>& sources, const std::regex& pattern) {
    std::vector<std::string> found;
    for (const Source& source : sources) {
        for (std::size_t n = 0; Logic(source.Folder) && n < source.Lines.size(); ++n) {
            if (std::regex_search(Code(source.Lines[n]), pattern)) {
                found.push_back(At(source, n) + ": " + source.Lines[n]);
            }
        }
    }
    return found;
}

TEST(Sources, every_folder_is_named_in_the_table_of_layers) {
    for (const Source& source : All()) {
        EXPECT_TRUE(MayInclude.contains(source.Folder)) << source.Path;
    }
}

TEST(Sources, file_names_are_unique) {
    std::map<std::string, fs::path> seen;
    for (const Source& source : All()) {
        const auto [at, fresh] = seen.emplace(source.Path.filename().string(), source.Path);
        EXPECT_TRUE(fresh) << source.Path << " and " << at->second;
    }
}

TEST(Sources, an_include_never_points_upwards) {
    const auto sources = All();
    std::map<std::string, std::string> folderOf;
    for (const Source& source : sources) {
        folderOf[source.Path.filename().string()] = source.Folder;
    }
    static const std::regex include(R"re(^\s*#include\s+"([^"]+)")re");
    for (const Source& source : sources) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            std::smatch match;
            if (!std::regex_search(source.Lines[n], match, include)) {
                continue;
            }
            const std::string name = match[1];
            ASSERT_TRUE(folderOf.contains(name)) << At(source, n) << ": " << name;
            const std::string& target = folderOf[name];
            EXPECT_TRUE(target == source.Folder || MayInclude.at(source.Folder).contains(target))
                << At(source, n) << " includes " << name << " of " << target;
        }
    }
}

TEST(Sources, an_include_never_takes_in_a_source_file) {
    static const std::regex include(R"re(#include\s+[<"].*\.cpp[>"])re");
    for (const Source& source : All()) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            EXPECT_FALSE(std::regex_search(source.Lines[n], include)) << At(source, n);
        }
    }
}

/// Lines with a name that the file takes in and does not use.
std::vector<std::string> UnusedUsings(const Source& source) {
    static const std::regex declaration(R"(^\s*using ([\w:]+)::(\w+);)");
    std::vector<std::string> found;
    for (std::size_t n = 0; n < source.Lines.size(); ++n) {
        std::smatch match;
        if (!std::regex_search(source.Lines[n], match, declaration)) {
            continue;
        }
        const std::string scope = match[1], name = match[2];
        const bool inheritsConstructors = scope == name || scope.ends_with("::" + name);
        const std::regex use("\\b" + name + "\\b");
        const auto uses = std::count_if(source.Lines.begin(), source.Lines.end(),
                                        [&](const std::string& line) { return std::regex_search(Code(line), use); });
        if (!inheritsConstructors && uses < 2) {
            found.push_back(At(source, n) + ": " + name);
        }
    }
    return found;
}

TEST(Sources, every_name_that_a_file_takes_in_is_used) {
    for (const Source& source : All()) {
        if (source.Path.extension() == ".cpp") {
            EXPECT_EQ(UnusedUsings(source), std::vector<std::string>{});
        }
    }
}

TEST(Sources, a_name_taken_in_without_use_is_found) {
    const Source source{
        .Path = "x.cpp", .Folder = "core", .Lines = {"using std::less;", "using std::map;", "map<int, int> m;"}};
    EXPECT_EQ(UnusedUsings(source).size(), 1U);
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

/// The standard headers that a file takes in itself and by the project's own headers.
std::set<std::string> StandardHeaders(const std::map<std::string, const Source*>& byName, const std::string& name,
                                      std::set<std::string>& seen) {
    static const std::regex include(R"re(^\s*#include\s+(["<])([^">]+)[">])re");
    std::set<std::string> found;
    if (!byName.contains(name) || !seen.insert(name).second) {
        return found;
    }
    for (const std::string& line : byName.at(name)->Lines) {
        std::smatch match;
        if (!line.starts_with("#include") || !std::regex_search(line, match, include)) {
            continue;
        }
        if (match[1] == "<") {
            found.insert(match[2]);
        } else {
            found.merge(StandardHeaders(byName, match[2], seen));
        }
    }
    return found;
}

std::vector<std::string> MissingHeaders(const std::vector<Source>& sources) {
    std::map<std::string, const Source*> byName;
    for (const Source& source : sources) {
        byName[source.Path.filename().string()] = &source;
    }
    std::vector<std::string> missing;
    for (const Source& source : sources) {
        std::set<std::string> seen;
        const auto headers = StandardHeaders(byName, source.Path.filename().string(), seen);
        const auto used = StandardNamesOf(source);
        for (const auto& [header, names] : StandardNames) {
            const bool taken = std::any_of(names.begin(), names.end(),
                                           [&used](const std::string& name) { return used.contains(name); });
            if (taken && !headers.contains(header)) {
                missing.push_back(source.Path.filename().string() + ": " + header);
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

TEST(Sources, nothing_below_the_platform_knows_the_toolkit) {
    EXPECT_EQ(Offenders(All(), std::regex(R"(#include\s+<Q)")), std::vector<std::string>{});
}

TEST(Sources, the_logic_never_sleeps_and_has_no_clock_and_no_chance_of_its_own) {
    const std::regex pattern(
        R"(\b(sleep|usleep|nanosleep|sleep_for|sleep_until|chrono|time|localtime|gettimeofday|clock_gettime|random_device|rand|srand|mt19937|thread|getenv)\s*(\(|::|>|\b_))");
    EXPECT_EQ(Offenders(All(), pattern), std::vector<std::string>{});
}

TEST(Sources, the_logic_opens_no_file_itself) {
    const std::regex pattern(R"(#include\s+<(fstream|filesystem|cstdio|unistd\.h|fcntl\.h)>)");
    EXPECT_EQ(Offenders(All(), pattern), std::vector<std::string>{});
}

TEST(Sources, no_variable_stands_at_namespace_scope) {
    // Code at namespace scope begins in column 1; a variable there that is neither constant nor part of a declaration
    // of a function or type is mutable state.
    const std::regex variable(
        R"(^(static |inline |extern |thread_local )*(?!using|namespace|template|class|struct|enum|union|return|typedef|constexpr|const |static_assert|friend|public|private|protected|default|case|if|for|while|else|do|switch|extern "")[A-Za-z_][\w:<>,\s\*&]*\s[A-Za-z_]\w*(\[[^\]]*\])*\s*(=[^=].*|\{.*\})?;\s*$)");
    std::vector<std::string> found;
    for (const Source& source : All()) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            const std::string code = Code(source.Lines[n]);
            if (code.find("const") == std::string::npos && std::regex_match(code, variable)) {
                found.push_back(At(source, n) + ": " + code);
            }
        }
    }
    EXPECT_EQ(found, std::vector<std::string>{});
}

TEST(Sources, no_file_is_longer_than_five_hundred_lines) {
    for (const Source& source : All()) {
        EXPECT_LE(source.Lines.size(), 500U) << source.Path;
    }
}

TEST(Sources, no_function_is_longer_than_sixty_lines) {
    // With the tree's formatting a function outside a class begins in column 1 with "{" at its end and ends with "}".
    for (const Source& source : All()) {
        std::size_t begin = 0;
        bool inside = false;
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            const std::string& line = source.Lines[n];
            const bool opens = !line.empty() && line.back() == '{' && line.find(')') != std::string::npos &&
                               line[0] != ' ' && line[0] != '}' && line.rfind("namespace", 0) != 0;
            if (opens) {
                begin = n;
                inside = true;
            } else if (inside && line == "}") {
                EXPECT_LE(n - begin + 1, 60U) << At(source, begin);
                inside = false;
            }
        }
    }
}

TEST(Sources, the_structure_test_sees_the_sources) {
    EXPECT_GT(All().size(), 50U);
}

} // namespace
