#pragma once

#include <functional>
#include <string>
#include <vector>

#include "examples/suite_host/screenshot.h"

// Writes pictures of off-screen browsers, each at the next paint after Arm(). Main thread only.
class Pictures {
 public:
  // Called once with the reason why a picture was not written, or with an empty string on success.
  using Done = std::function<void(const std::string& error)>;

  // Requests a picture of a browser, which is not written before Arm(). Returns the number of the
  // request.
  int Request(int browser, const std::string& path, Done done);
  // Allows the next paint to be written to the file of that request. Has no effect when the request
  // has ended.
  void Arm(int number);
  // Writes the armed pictures of this browser. `pixels` has width * height * 4 bytes.
  void Paint(int browser, const void* pixels, int width, int height);
  // Fails the requests of a browser that has closed.
  void Drop(int browser);
  void DropAll();

  bool empty() const { return requests_.empty(); }

 private:
  struct PendingPicture {
    int number;
    int browser;
    std::string path;
    Done done;
    bool armed;
  };

  // Removes and returns the requests that match, because `done` may change `requests_`.
  std::vector<PendingPicture> Take(const std::function<bool(const PendingPicture&)>& matches);

  std::vector<PendingPicture> requests_;
  int last_number_ = 0;
};
