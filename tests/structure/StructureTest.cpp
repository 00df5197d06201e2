// Reads the sources and holds them against the rules of the layers.

#include <algorithm>
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
