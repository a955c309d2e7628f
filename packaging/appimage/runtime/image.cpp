#include "image.h"

#include <elf.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

extern "C" {
#include <squashfuse/traverse.h>
}

namespace dtb::appimage {
namespace {

constexpr std::uint32_t kSquashfs = 0x73717368;
constexpr std::size_t kBlock = std::size_t{1} << 20;

template <typename Header>
bool ReadHeader(int file, std::uint64_t from, Header& header) {
  return pread(file, &header, sizeof header, static_cast<off_t>(from)) ==
         static_cast<ssize_t>(sizeof header);
}

std::string Quoted(const std::string& path) { return '"' + path + '"'; }

[[noreturn]] void CannotWrite(const std::string& path, int code) {
  throw Fault(Quoted(path) + " cannot be written: " + std::strerror(code));
}

}  // namespace

Image::Image(const std::string& file) : file_(file) {
  descriptor_ = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor_ < 0) {
    throw Fault("the file " + Quoted(file) + " cannot be read: " + std::strerror(errno));
  }
  // The program ends with the table of its sections; the image follows.
  Elf64_Ehdr program{};
  squashfs_super_block block{};
  const off_t size = lseek(descriptor_, 0, SEEK_END);
  if (ReadHeader(descriptor_, 0, program)) {
    offset_ = program.e_shoff + std::uint64_t{program.e_shentsize} * program.e_shnum;
  }
  const bool begun = ReadHeader(descriptor_, offset_, block);
  if (begun && block.s_magic != kSquashfs) {
    throw Fault("the file " + Quoted(file) + " holds no program; fetch it again");
  }
  // The image is padded, but what counts must be there.
  const std::uint64_t whole = offset_ + (begun ? block.bytes_used : sizeof block);
  if (static_cast<std::uint64_t>(size) < whole) {
    throw Fault("the file " + Quoted(file) + " is incomplete: it has " + std::to_string(size) +
                " bytes of at least " + std::to_string(whole) + "; fetch it again");
  }
  if (sqfs_init(&system_, descriptor_, offset_) != SQFS_OK) {
    throw Fault("the file " + Quoted(file) + " is damaged; fetch it again");
  }
}

Image::~Image() {
  sqfs_destroy(&system_);
  close(descriptor_);
}

bool Image::Load(sqfs_inode_id id, sqfs_inode& inode) {
  return sqfs_inode_get(&system_, &inode, id) == SQFS_OK;
}

bool Image::Find(const std::string& path, sqfs_inode& inode) {
  bool found = false;
  return Load(sqfs_inode_root(&system_), inode) &&
         sqfs_lookup_path(&system_, &inode, path.c_str(), &found) == SQFS_OK && found;
}

struct stat Image::StatusOf(sqfs_inode& inode) {
  struct stat status {};
  status.st_mode = inode.base.mode;
  status.st_nlink = static_cast<nlink_t>(inode.nlink);
  status.st_ino = inode.base.inode_number;
  // The board sees by the time of a change that a newer image brings another file.
  status.st_mtime = status.st_ctime = inode.base.mtime;
  status.st_uid = getuid();
  status.st_gid = getgid();
  if (S_ISREG(status.st_mode)) status.st_size = static_cast<off_t>(inode.xtra.reg.file_size);
  if (S_ISLNK(status.st_mode)) status.st_size = static_cast<off_t>(inode.xtra.symlink_size);
  return status;
}

std::int64_t Image::Read(sqfs_inode& inode, std::uint64_t from, std::span<char> into) {
  auto size = static_cast<sqfs_off_t>(into.size());
  const sqfs_err error =
      sqfs_read_range(&system_, &inode, static_cast<sqfs_off_t>(from), &size, into.data());
  return error == SQFS_OK ? size : -1;
}

std::string Image::LinkTarget(sqfs_inode& inode) {
  std::vector<char> text(inode.xtra.symlink_size + 1);
  std::size_t size = text.size();
  return sqfs_readlink(&system_, &inode, text.data(), &size) == SQFS_OK ? text.data() : "";
}

void Image::Extract(const std::string& folder) {
  sqfs_traverse walk{};
  sqfs_err error = sqfs_traverse_open(&walk, &system_, sqfs_inode_root(&system_));
  try {
    while (error == SQFS_OK && sqfs_traverse_next(&walk, &error)) {
      if (walk.dir_end) continue;
      sqfs_inode inode{};
      if (!Load(sqfs_dentry_inode(&walk.entry), inode)) {
        error = SQFS_ERR;
        break;
      }
      ExtractOne(inode, folder + '/' + walk.path);
    }
  } catch (...) {
    sqfs_traverse_close(&walk);
    throw;
  }
  sqfs_traverse_close(&walk);
  if (error != SQFS_OK) throw Fault("the file " + Quoted(file_) + " is damaged; fetch it again");
}

void Image::ExtractOne(sqfs_inode& inode, const std::string& path) {
  const mode_t mode = inode.base.mode;
  if (S_ISDIR(mode)) {
    if (mkdir(path.c_str(), mode & 0777U) != 0 && errno != EEXIST) CannotWrite(path, errno);
  } else if (S_ISLNK(mode)) {
    unlink(path.c_str());
    if (symlink(LinkTarget(inode).c_str(), path.c_str()) != 0) CannotWrite(path, errno);
  } else if (S_ISREG(mode)) {
    ExtractFile(inode, path);
  }
}

void Image::ExtractFile(sqfs_inode& inode, const std::string& path) {
  unlink(path.c_str());  // never write through a link that stood there
  const int out = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (out < 0) CannotWrite(path, errno);
  static std::vector<char> block(kBlock);
  int code = 0;
  std::int64_t count = 1;
  for (std::uint64_t done = 0; code == 0 && done < inode.xtra.reg.file_size && count > 0;) {
    count = Read(inode, done, block);
    for (std::int64_t put = 0; code == 0 && put < count;) {
      const ssize_t more = write(out, block.data() + put, static_cast<std::size_t>(count - put));
      if (more > 0) put += more;
      if (more < 0 && errno != EINTR) code = errno;
    }
    done += static_cast<std::uint64_t>(std::max<std::int64_t>(count, 0));
  }
  fchmod(out, inode.base.mode & 0777U);
  if (close(out) != 0 && code == 0) code = errno;
  if (code != 0) CannotWrite(path, code);
  if (count <= 0 && inode.xtra.reg.file_size > 0) {
    throw Fault("the file " + Quoted(file_) + " is damaged; fetch it again");
  }
}

}  // namespace dtb::appimage
