// SPDX-License-Identifier: LGPL-2.1-or-later
// A real station: Icecast fed by ffmpeg, one tone a format.
#include "tests/media/player_rig.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace lumotune::media::rig {
namespace {

struct Station {
  const char* name;
  double hertz;
  const char* type;
  std::vector<std::string> encoder;
  const wchar_t* codec;
};

void PrintTo(const Station& station, std::ostream* out) {
  *out << station.name;
}

const Station stations[] = {
    {"mp3", 410, "audio/mpeg", {"-c:a", "libmp3lame", "-b:a", "128k", "-f", "mp3"}, L"MP3"},
    {"aac", 510, "audio/aac", {"-c:a", "aac", "-b:a", "128k", "-f", "adts"}, L"AAC"},
    {"vorbis", 610, "application/ogg", {"-c:a", "libvorbis", "-b:a", "128k", "-f", "ogg"}, L"Vorbis"},
    {"opus", 710, "application/ogg", {"-c:a", "libopus", "-b:a", "96k", "-f", "ogg"}, L"Opus"},
    {"flac", 810, "application/ogg", {"-c:a", "flac", "-f", "ogg"}, L"FLAC"},
};

class Icecast : public PlayerTest {
protected:
  Icecast() {
    folder_ = std::filesystem::temp_directory_path() / ("lumotune-icecast." + std::to_string(getpid()));
    std::filesystem::create_directories(folder_);
    std::filesystem::permissions(folder_, std::filesystem::perms::all);
    // Tests run beside each other, and Icecast cannot choose a port by itself: each has an address of its own.
    const int pid = getpid();
    host_ = "127." + std::to_string(1 + (pid >> 16) % 250) + "." + std::to_string((pid >> 8) & 255) + "." +
            std::to_string(pid & 255);
    start();
  }
  ~Icecast() override {
    feeder_.end();
    server_.end();
    std::filesystem::remove_all(folder_);
  }

  void feed(const Station& station) {
    std::vector<std::string> command = {
        "ffmpeg",   "-v",  "error",
        "-nostdin", "-re", "-f",
        "lavfi",    "-i",  "sine=frequency=" + std::to_string(station.hertz) + ":sample_rate=44100",
        "-ac",      "2"};
    command.insert(command.end(), station.encoder.begin(), station.encoder.end());
    command.insert(command.end(),
                   {"-content_type", station.type,
                    "icecast://source:pass@" + host_ + ":" + std::to_string(port_) + "/" + station.name});
    feeder_.end();
    feeder_ = Process(command);
  }
  [[nodiscard]] std::string url(const Station& station) const {
    return "http://" + host_ + ":" + std::to_string(port_) + "/" + station.name;
  }
  void tell(const Station& station, const std::string& song) {
    Process curl({"curl", "-s", "-u", "source:pass",
                  "http://" + host_ + ":" + std::to_string(port_) +
                      "/admin/metadata?mode=updinfo&charset=UTF-8&mount=/" + station.name + "&song=" + song});
    (void)curl.read_line();
    pass(200);
  }

  // Why it is not up, for messages.
  [[nodiscard]] std::string server_log() const {
    std::ifstream log(folder_ / "e.log");
    return "Icecast at " + host_ + ":" + std::to_string(port_) + "\n" +
           std::string(std::istreambuf_iterator<char>(log), {});
  }

  bool up_ = false;
  Process feeder_;

private:
  void start() {
    port_ = free_port(host_);
    const std::string folder = folder_.string();
    std::ofstream config(folder_ / "icecast.xml");
    config
        << "<icecast><hostname>127.0.0.1</hostname><limits><clients>50</clients><sources>10</sources>"
           "<burst-size>65535</burst-size></limits><authentication><source-password>pass</source-password>"
           "<admin-user>admin</admin-user><admin-password>pass</admin-password></authentication><listen-socket>"
           "<bind-address>"
        << host_ << "</bind-address><port>" << port_ << "</port></listen-socket><paths><logdir>" << folder
        << "</logdir><webroot>/usr/share/icecast2/web</webroot><adminroot>/usr/share/icecast2/admin</adminroot></paths>"
           "<logging><accesslog>a.log</accesslog><errorlog>e.log</errorlog><loglevel>4</loglevel></logging>";
    // Icecast does not run as root.
    if (geteuid() == 0)
      config << "<security><changeowner><user>nobody</user><group>nogroup</group></changeowner></security>";
    config << "</icecast>";
    config.close();
    server_ = Process({"icecast2", "-c", folder + "/icecast.xml"});
    // Icecast 2.4 crashes when somebody connects while its statistics thread starts, which nothing tells. This line
    // comes a second after it listens.
    up_ = until([this] { return server_log().find("checking master stream list") != std::string::npos; });
  }

  std::filesystem::path folder_;
  Process server_;
  std::string host_;
  int port_ = 0;
};

class IcecastFormat : public Icecast, public ::testing::WithParamInterface<Station> {};

TEST_P(IcecastFormat, PlaysItsTone) {
  ASSERT_TRUE(up_) << server_log();
  feed(GetParam());
  play(url(GetParam())); // it is not there yet: that is retried
  EXPECT_TRUE(until_hears(GetParam().hertz)) << told() << server_log();
  EXPECT_EQ(player().status().codec, GetParam().codec) << told();
}

INSTANTIATE_TEST_SUITE_P(All, IcecastFormat, ::testing::ValuesIn(stations),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

TEST_F(Icecast, TellsTheTitle) {
  ASSERT_TRUE(up_) << server_log();
  feed(stations[0]);
  play(url(stations[0]));
  ASSERT_TRUE(until_hears(stations[0].hertz)) << told() << server_log();
  tell(stations[0], "Um%C4%9Blec%20-%20P%C3%ADse%C5%88");
  EXPECT_TRUE(until([this] { return says("playing MP3 128 kbps 44100 Hz: Umělec - Píseň"); })) << told();
}

TEST_F(Icecast, ComesBackWithItsSource) {
  ASSERT_TRUE(up_) << server_log();
  feed(stations[0]);
  play(url(stations[0]));
  ASSERT_TRUE(until_hears(stations[0].hertz)) << told() << server_log();
  feeder_.end();
  ASSERT_TRUE(until_said("not found (404)")) << told();
  ASSERT_TRUE(until([this] { return device->silent(); }));
  feed(stations[0]);
  EXPECT_TRUE(until_hears(stations[0].hertz)) << told();
}

} // namespace
} // namespace lumotune::media::rig
