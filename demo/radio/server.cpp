// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/radio/server.h"

#include "demo/radio/request.h"
#include "demo/radio/sound_flow.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

namespace demo_radio {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int most_connections = 32;
constexpr milliseconds longest_request{10000};
constexpr milliseconds step{50};    // between two pieces of what is sent by and by
constexpr milliseconds ahead{2000}; // of the sound, sent at once
constexpr milliseconds title_lasts{15000};

std::atomic<int> connections = 0; // NOLINT: of the process

std::string status_line(std::string_view status, std::string_view type) {
  return "HTTP/1.0 " + std::string(status) +
         "\r\nServer: demo_radio\r\nCache-Control: no-store\r\nContent-Type: " + std::string(type) + "\r\n";
}

std::optional<Request> read_request(const Socket& socket) {
  const auto end = Clock::now() + longest_request;
  std::string head;
  while (head.size() < longest_head) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
    const std::string more = socket.receive(longest_head - head.size(), std::max(left, milliseconds(0)));
    if (more.empty())
      return std::nullopt;
    head += more;
    const std::size_t empty_line = head.find("\r\n\r\n");
    if (empty_line != std::string::npos)
      return parse_request(std::string_view(head).substr(0, empty_line + 4));
  }
  return std::nullopt;
}

void send_reply(const Socket& socket, const Reply& reply, bool head_only) {
  const std::string head =
      status_line("200 OK", reply.type) + "Content-Length: " + std::to_string(reply.body.size()) + "\r\n\r\n";
  if (!socket.send(head) || head_only)
    return;
  const std::size_t pieces = std::max<std::size_t>(1, reply.milliseconds / static_cast<std::size_t>(step.count()));
  const std::string_view body = reply.body;
  for (std::size_t piece = 0; piece < pieces; ++piece) {
    const std::size_t begin = body.size() * piece / pieces;
    if (!socket.send(body.substr(begin, body.size() * (piece + 1) / pieces - begin)))
      return;
    if (pieces > 1)
      std::this_thread::sleep_for(step);
  }
}

// Everybody hears the same moment of the programme.
void send_stream(const Socket& socket, const Stream& stream, const Request& request) {
  const bool titles = request.wants_titles && !stream.has_inner_titles;
  std::string head = status_line("200 OK", stream.type) + "icy-name: " + stream.name +
                     "\r\nicy-br: " + std::to_string(stream.bit_rate) + "\r\n";
  if (titles)
    head += "icy-metaint: " + std::to_string(title_interval) + "\r\n";
  if (!socket.send(head + "\r\n") || request.head_only)
    return;
  const auto bytes_in = [&](std::uint64_t time_ms) { return time_ms * stream.sound.size() / stream.loop_milliseconds; };
  const auto now_ms = [] {
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()).count());
  };
  const std::uint64_t place = stream.has_inner_titles ? 0 : bytes_in(now_ms() % stream.loop_milliseconds);
  SoundFlow flow(stream, static_cast<std::size_t>(place), titles);
  const auto begun = Clock::now();
  while (true) {
    const auto played = std::chrono::duration_cast<milliseconds>(Clock::now() - begun + ahead).count();
    const std::uint64_t turn = now_ms() / static_cast<std::uint64_t>(title_lasts.count());
    const std::string& title = stream.titles[static_cast<std::size_t>(turn % stream.titles.size())];
    if (!socket.send(flow.until(bytes_in(static_cast<std::uint64_t>(played)), title)))
      return;
    std::this_thread::sleep_for(step);
  }
}

void answer(const Socket& socket, const Programme& programme) {
  const std::optional<Request> request = read_request(socket);
  if (!request) {
    (void)socket.send(status_line("400 Bad Request", "text/plain") + "\r\n");
    return;
  }
  if (const Stream* stream = programme.stream(request->target)) {
    send_stream(socket, *stream, *request);
    return;
  }
  const Reply reply = programme.reply(request->target);
  if (reply.type.empty())
    (void)socket.send(status_line("404 Not Found", "text/plain") + "\r\n");
  else
    send_reply(socket, reply, request->head_only);
}

void answer_on_a_thread(Socket socket, const Programme& programme) {
  try {
    std::thread([socket = std::move(socket), &programme] {
      try {
        answer(socket, programme);
      } catch (const std::exception&) { // no memory: this connection ends
      }
      --connections;
    }).detach();
  } catch (const std::system_error&) {
    --connections;
  }
}

} // namespace

void serve(const Socket& listener, const Programme& programme) {
  while (true) {
    Socket socket = listener.accept();
    if (!socket.is_open()) {
      std::this_thread::sleep_for(step);
      continue;
    }
    if (++connections <= most_connections)
      answer_on_a_thread(std::move(socket), programme);
    else
      --connections; // and the connection is closed
  }
}

} // namespace demo_radio
