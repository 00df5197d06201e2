// Reads the sources and holds them against the rules of the layers.

#include "SourceFiles.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

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

TEST(Sources, file_names_are_unique) {
    std::map<std::string, std::filesystem::path> seen;
    for (const Source& source : All()) {
        const auto [at, fresh] = seen.emplace(source.Path.filename().string(), source.Path);
        EXPECT_TRUE(fresh) << source.Path << " and " << at->second;
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

TEST(Sources, ranges_of_serials_stand_on_one_page) {
    // All of them are numbers of seven digits and more, which nothing else in the logic is.
    const std::regex serial(R"(\b0[xX][0-9A-Fa-f]{7,8}\b)");
    std::vector<std::string> found;
    for (const Source& source : All()) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            const bool own = source.Name() == "Modelle.h" || source.Folder.starts_with("simulator");
            if (!own && std::regex_search(Code(source.Lines[n]), serial)) {
                found.push_back(At(source, n) + ": " + source.Lines[n]);
            }
        }
    }
    EXPECT_EQ(found, std::vector<std::string>{});
}

/// A number where a line of the catalogue is asked for.
const std::regex& NumberedLine() {
    static const std::regex pattern(
        R"(\b(Zeile|Status|Status_Zeigen|Ende|Ende_Zeigen|Fertig|Wartebox_Text|Mit_Meldung_Enden)\(([^()]*[ ,(])?[1-9]\d*[,)]|\bline[A-Z]\w* = [1-9])");
    return pattern;
}

TEST(Sources, a_line_of_the_catalogue_goes_by_its_name) {
    std::vector<std::string> found;
    for (const Source& source : All()) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            const std::string code = Code(source.Lines[n]);
            if (std::regex_search(code, NumberedLine())) {
                found.push_back(At(source, n) + ": " + source.Lines[n]);
            }
        }
    }
    EXPECT_EQ(found, std::vector<std::string>{});
}

TEST(Sources, a_line_of_the_catalogue_by_its_number_is_found) {
    EXPECT_TRUE(std::regex_search(std::string("kern.Zeile(66)"), NumberedLine()));
    EXPECT_TRUE(std::regex_search(std::string("Status_Zeigen(82, 0);"), NumberedLine()));
    EXPECT_TRUE(std::regex_search(std::string("constexpr int lineProgrammed = 266;"), NumberedLine()));
    EXPECT_TRUE(std::regex_search(std::string("kern.Zeile(good ? Line::Ok : 66)"), NumberedLine()));
    EXPECT_FALSE(std::regex_search(std::string("Status_Zeigen(Line::Cancelled, 0);"), NumberedLine()));
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

/// Names of the files that have more lines than `most`.
std::set<std::string> LongFiles(const std::vector<Source>& sources, std::size_t most) {
    std::set<std::string> found;
    for (const Source& source : sources) {
        if (source.Lines.size() > most) {
            found.insert(source.Name());
        }
    }
    return found;
}

/// File and first line of every function of more lines than `most`. With the tree's formatting a function outside a
/// class, a test too, begins in column 1 with "{" at its end and ends with "}".
std::set<std::string> LongFunctions(const std::vector<Source>& sources, std::size_t most) {
    std::set<std::string> found;
    for (const Source& source : sources) {
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
                if (n - begin + 1 > most) {
                    found.insert(source.Name() + ": " + source.Lines[begin]);
                }
                inside = false;
            }
        }
    }
    return found;
}

using Names = std::set<std::string>;

TEST(Sources, no_file_is_longer_than_four_hundred_lines) {
    EXPECT_EQ(LongFiles(All(), 400), Names{});
}

TEST(Sources, no_function_is_longer_than_fifty_lines) {
    EXPECT_EQ(LongFunctions(All(), 50), Names{});
}

TEST(Tests, no_file_is_longer_than_five_hundred_lines_but_those_with_a_reason) {
    EXPECT_EQ(LongFiles(AllTests(), 500), (Names{
                                              "AntwortVerteilenTest.cpp", // follows the table of replies row by row
                                              "F91Test.cpp",              // to be divided by subject
                                              "ListenlaufTest.cpp",       // to be divided by subject
                                          }));
}

TEST(Tests, no_function_is_longer_than_sixty_lines_but_those_with_a_reason) {
    EXPECT_EQ(LongFunctions(AllTests(), 60),
              (Names{
                  "MemoryFiles.cpp: FileStore MemoryFiles::Store() {", // names every operation on files once
              }));
}

TEST(Sources, a_file_and_a_function_over_the_limit_are_found) {
    const std::vector<Source> sources{
        {.Path = "a.cpp", .Folder = "core", .Lines = {"void A() {", "    a();", "}"}},
        {.Path = "b.cpp", .Folder = "core", .Lines = {"TEST(B, does_b) {", "    b();", "    b();", "}"}}};
    EXPECT_EQ(LongFunctions(sources, 3), Names{"b.cpp: TEST(B, does_b) {"});
    EXPECT_EQ(LongFiles(sources, 3), Names{"b.cpp"});
}

TEST(Sources, the_structure_test_sees_the_sources) {
    EXPECT_GT(All().size(), 50U);
    EXPECT_GT(AllTests().size(), 50U);
}

} // namespace
} // namespace qvm::test
