// SPDX-License-Identifier: LGPL-2.1-or-later
// The parts of the small radio that need no connection.
#include "demo/radio/programme.h"
#include "demo/radio/request.h"
#include "demo/radio/sound_flow.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace demo_radio {
namespace {

std::string request(const std::string& line, const std::string& fields = "") {
  return line + "\r\n" + fields + "\r\n";
}

TEST(Request, TellsItsTargetAndWishes) {
  const auto plain = parse_request(request("GET /lumo01-128.mp3 HTTP/1.1", "Host: 127.0.0.1\r\n"));
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->target, "/lumo01-128.mp3");
  EXPECT_FALSE(plain->head_only);
  EXPECT_FALSE(plain->wants_titles);
  const auto other = parse_request(request("HEAD \\a b HTTP/1.0", "iCy-MetaData:  1 \r\n"));
  ASSERT_TRUE(other);
  EXPECT_EQ(other->target, "\\a b");
  EXPECT_TRUE(other->head_only);
  EXPECT_TRUE(other->wants_titles);
  EXPECT_FALSE(parse_request(request("GET / HTTP/1.1", "icy-metadata: 10\r\n"))->wants_titles);
}

TEST(Request, IsRefusedWhenItIsNone) {
  for (const char* line : {"", "GET", "GET /", "GET / HTTP/2", "POST / HTTP/1.1", "GET http://a/ HTTP/1.1",
                           "GET  HTTP/1.1", "get / HTTP/1.1"})
    EXPECT_FALSE(parse_request(request(line))) << line;
  EXPECT_FALSE(parse_request("GET / HTTP/1.1\r\n")) << "not at its end";
  EXPECT_FALSE(parse_request(request("GET / HTTP/1.1", "a: " + std::string(longest_head, 'x') + "\r\n")));
}

TEST(SoundFlow, SendsTheSoundOverAndOver) {
  const Stream stream{"audio/mpeg", "", 1, 1, {"a"}, "0123456789", false};
  SoundFlow flow(stream, 8, false);
  EXPECT_EQ(flow.until(5, "a"), "89012");
  EXPECT_EQ(flow.until(5, "a"), "");
  EXPECT_EQ(flow.until(26, "a"), "345678901234567890123");
  EXPECT_EQ(flow.until(1000000, "a").size(), 65536U) << "after a pause of the machine";
}

TEST(SoundFlow, PutsATitleAfterEachIntervalAndOnlyWhenItChanged) {
  const Stream stream{"audio/mpeg", "", 1, 1, {"a"}, "0123456789", false};
  SoundFlow flow(stream, 0, true);
  EXPECT_EQ(flow.until(title_interval - 1, "Píseň").size(), title_interval - 1);
  EXPECT_EQ(flow.until(title_interval, "Píseň").substr(1), title_block("Píseň"));
  EXPECT_EQ(flow.until(2 * title_interval, "Píseň").size(), title_interval + 1U);
  EXPECT_TRUE(flow.until(3 * title_interval, "Jiná").ends_with(title_block("Jiná")));
}

TEST(SoundFlow, ATitleIsFilledUpToBlocksAndBounded) {
  EXPECT_EQ(title_block("a"), "\1StreamTitle='a';");
  EXPECT_EQ(title_block("ab"), "\2StreamTitle='ab';" + std::string(15, '\0'));
  EXPECT_EQ(title_block(""), std::string(1, '\0'));
  EXPECT_EQ(title_block(std::string(10000, 'x')).size(), 1U + 255 * 16);
}

// A folder with a table and what it names.
class ProgrammeTest : public testing::Test {
protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() / ("demo_radio_test." + std::to_string(getpid()));
    std::filesystem::create_directories(folder_ / "zvuk");
    write("zvuk/a-1.mp3", "sound");
    write("tajne.txt", "secret");
    write("odpovedi.bin", "seznam {RADIO}/x\r\nstránka");
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  void write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  Programme load(const std::string& table) {
    write("odpovedi.tsv", table);
    return {folder_, "http://127.0.0.1:7"};
  }

private:
  std::filesystem::path folder_;
};

constexpr const char* good = "list\t/list.php\ttext/plain\t0\t18\t3500\nreply\t/page\ttext/html\t18\t8\t0\n"
                             "reply\t/talk?tid=lumo01\ttext/html\t18\t3\t0\nreply\t/talk\ttext/html\t18\t1\t0\n"
                             "prefix\t/login/\ttext/html\t18\t2\t0\n"
                             "stream\t/a-1.mp3\taudio/mpeg\ta-1.mp3\t24000\t128\tJméno\tPrvní|Druhá\n";

TEST_F(ProgrammeTest, AnswersByPathAndByStation) {
  const Programme programme = load(good);
  EXPECT_EQ(programme.reply("/list.php?idh=a").body, "seznam http://127.0.0.1:7/x\r\n");
  EXPECT_EQ(programme.reply("/list.php?idh=a").milliseconds, 3500U);
  EXPECT_EQ(programme.reply("/list.php?a=b&size=1").body, "size:29\r\n") << "of what is really sent";
  EXPECT_EQ(programme.reply("\\page?x").body, "stránka");
  EXPECT_EQ(programme.reply("/talk?idh=a&tid=LUMO01").body.size(), 3U);
  EXPECT_EQ(programme.reply("/talk?tid=none").body.size(), 1U);
  EXPECT_EQ(programme.reply("/login/a/b/c").body, "st");
  EXPECT_TRUE(programme.reply("/nothing").type.empty());
  ASSERT_NE(programme.stream("/a-1.mp3?x=1"), nullptr);
  EXPECT_EQ(programme.stream("/a-1.mp3")->titles, (std::vector<std::string>{"První", "Druhá"}));
  EXPECT_EQ(programme.stream("/../tajne.txt"), nullptr);
}

TEST_F(ProgrammeTest, ATableThatIsNotWholeIsRefused) {
  for (const char* line :
       {"reply\t/a\ttext/html\t0\t27\t0", "reply\t/a\ttext/html\t99\t0\t0", "reply\t/a\ttext/html\t-1\t1\t0",
        "reply\t/a\ttext/html\t4294967295\t1\t0", "reply\t/a", "other\t/a\tb\t0\t0\t0",
        "stream\t/a\tb\t../tajne.txt\t1\t1\tn\tt", "stream\t/a\tb\tnone.mp3\t1\t1\tn\tt",
        "stream\t/a\tb\ta-1.mp3\t0\t1\tn\tt", "stream\t/a\tb\t..\t1\t1\tn\tt"})
    EXPECT_THROW(load(line), std::runtime_error) << line;
  std::string many;
  for (int count = 0; count < 5001; ++count)
    many += "reply\t/a\tb\t0\t0\t0\n";
  EXPECT_THROW(load(many), std::runtime_error);
}

} // namespace
} // namespace demo_radio
