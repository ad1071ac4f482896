#include "word/document/last_template.h"

namespace zorkanca::word {

namespace {

bool SameMoment(const timespec& left, const timespec& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

bool Unchanged(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino && left.st_size == right.st_size &&
         SameMoment(left.st_mtim, right.st_mtim) && SameMoment(left.st_ctim, right.st_ctim);
}

}  // namespace

WordPackage LastTemplate::Open(const std::string& path, const std::function<WordPackage()>& read) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return read();
  if (!kept_ || path != path_ || !Unchanged(status, status_)) {
    kept_.reset();
    WordPackage package = read();
    package.Prepare();
    kept_.emplace(std::move(package));
    path_ = path;
    status_ = status;
  }
  return kept_->Copy();
}

}  // namespace zorkanca::word
