#include "examples/suite_host/pictures.h"

#include <algorithm>
#include <iterator>
#include <utility>

int Pictures::Request(int browser, const std::string& path, Done done) {
  requests_.push_back({++last_number_, browser, path, std::move(done), false});
  return last_number_;
}

void Pictures::Arm(int number) {
  for (PendingPicture& picture : requests_)
    picture.armed = picture.armed || picture.number == number;
}

void Pictures::Paint(int browser, const void* pixels, int width, int height) {
  const std::vector<PendingPicture> pending = Take([browser](const PendingPicture& picture) {
    return picture.browser == browser && picture.armed;
  });
  if (pending.empty()) return;
  Screenshot screenshot;
  screenshot.Take(pixels, width, height);
  for (const PendingPicture& picture : pending) {
    std::string error;
    screenshot.Write(picture.path, error);
    picture.done(error);
  }
}

void Pictures::Drop(int browser) {
  const auto matches = [browser](const auto& picture) { return picture.browser == browser; };
  for (const PendingPicture& picture : Take(matches))
    picture.done("browser " + std::to_string(browser) + " closed before its next paint");
}

void Pictures::DropAll() {
  while (!requests_.empty())
    Drop(requests_.front().browser);
}

std::vector<Pictures::PendingPicture> Pictures::Take(
    const std::function<bool(const PendingPicture&)>& matches) {
  const auto first = std::stable_partition(
      requests_.begin(), requests_.end(),
      [&matches](const PendingPicture& picture) { return !matches(picture); });
  std::vector<PendingPicture> taken(std::make_move_iterator(first),
                                    std::make_move_iterator(requests_.end()));
  requests_.erase(first, requests_.end());
  return taken;
}
