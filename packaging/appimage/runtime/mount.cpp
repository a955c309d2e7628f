#include "mount.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace dtb::appimage {
namespace {

Image& TheImage() { return *static_cast<Image*>(fuse_get_context()->private_data); }

// An open file is known by its inode, so that its path is looked up once. libfuse keeps a number.
sqfs_inode* OpenFile(const fuse_file_info* info) {
  return reinterpret_cast<sqfs_inode*>(info->fh);  // NOLINT(performance-no-int-to-ptr)
}

int Status(const char* path, struct stat* status, fuse_file_info* /*info*/) {
  sqfs_inode inode{};
  if (!TheImage().Find(path, inode)) return -ENOENT;
  *status = TheImage().StatusOf(inode);
  return 0;
}

int Link(const char* path, char* target, size_t room) {
  sqfs_inode inode{};
  if (!TheImage().Find(path, inode) || !S_ISLNK(inode.base.mode)) return -EINVAL;
  const std::string text = TheImage().LinkTarget(inode);
  if (text.empty()) return -EIO;
  target[text.copy(target, room - 1)] = '\0';
  return 0;
}

int Open(const char* path, fuse_file_info* info) {
  if ((info->flags & O_ACCMODE) != O_RDONLY) return -EROFS;
  auto inode = std::make_unique<sqfs_inode>();
  if (!TheImage().Find(path, *inode)) return -ENOENT;
  info->fh = reinterpret_cast<std::uint64_t>(inode.release());
  info->keep_cache = 1;
  return 0;
}

int Read(const char* /*path*/, char* into, size_t size, off_t from, fuse_file_info* info) {
  const auto start = static_cast<std::uint64_t>(from);
  if (start >= OpenFile(info)->xtra.reg.file_size) return 0;
  const auto count = TheImage().Read(*OpenFile(info), start, {into, size});
  return count < 0 ? -EIO : static_cast<int>(count);
}

int Release(const char* /*path*/, fuse_file_info* info) {
  delete OpenFile(info);
  return 0;
}

int ReadFolder(const char* path, void* list, fuse_fill_dir_t put, off_t /*from*/,
               fuse_file_info* /*info*/, fuse_readdir_flags /*flags*/) {
  sqfs_inode inode{};
  sqfs_dir folder{};
  if (!TheImage().Find(path, inode)) return -ENOENT;
  if (sqfs_dir_open(TheImage().system(), &inode, &folder, 0) != SQFS_OK) return -ENOTDIR;
  for (const char* name : {".", ".."}) put(list, name, nullptr, 0, fuse_fill_dir_flags{});
  sqfs_name name{};
  sqfs_dir_entry entry{};
  sqfs_dentry_init(&entry, name);
  sqfs_err error = SQFS_OK;
  while (sqfs_dir_next(TheImage().system(), &folder, &entry, &error)) {
    put(list, sqfs_dentry_name(&entry), nullptr, 0, fuse_fill_dir_flags{});
  }
  return error == SQFS_OK ? 0 : -EIO;
}

// Nothing in the image ever changes, so the system may remember all of it.
void* Begin(fuse_conn_info* /*connection*/, fuse_config* config) {
  constexpr double kForever = 3600;
  config->entry_timeout = config->attr_timeout = config->negative_timeout = kForever;
  config->kernel_cache = 1;
  config->use_ino = 1;
  return fuse_get_context()->private_data;
}

fuse_operations Operations() {
  fuse_operations all{};
  all.getattr = Status;
  all.readlink = Link;
  all.open = Open;
  all.read = Read;
  all.release = Release;
  all.readdir = ReadFolder;
  all.init = Begin;
  return all;
}

// Where mounting fails there is another way, so that nobody need read of it.
class Silence {
 public:
  Silence() : kept_(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) {
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nothing, STDERR_FILENO);
    close(nothing);
  }
  ~Silence() {
    dup2(kept_, STDERR_FILENO);
    close(kept_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  int kept_;
};

}  // namespace

std::unique_ptr<Mount> Mount::Try(Image& image, const std::string& folder) {
  if (access("/dev/fuse", R_OK | W_OK) != 0) return nullptr;
  // Without this list fusermount3 mounts for a person what it does not unmount later.
  if (geteuid() != 0 && access("/etc/mtab", R_OK) != 0) return nullptr;
  const Silence silence;
  std::array<const char*, 3> words{"appimage", "-o", "ro,nosuid,nodev,subtype=appimage"};
  fuse_args arguments =
      FUSE_ARGS_INIT(static_cast<int>(words.size()), const_cast<char**>(words.data()));
  const fuse_operations operations = Operations();
  fuse* mounted = fuse_new(&arguments, &operations, sizeof operations, &image);
  fuse_opt_free_args(&arguments);
  if (mounted == nullptr) return nullptr;
  if (fuse_mount(mounted, folder.c_str()) != 0) {
    fuse_destroy(mounted);
    return nullptr;
  }
  return std::unique_ptr<Mount>(new Mount(mounted));
}

Mount::~Mount() {
  const Silence silence;
  fuse_unmount(fuse_);
  fuse_destroy(fuse_);
  std::free(buffer_.mem);
}

int Mount::descriptor() const {
  fuse_session* session = fuse_get_session(fuse_);
  return fuse_session_exited(session) != 0 ? -1 : fuse_session_fd(session);
}

void Mount::Answer() {
  fuse_session* session = fuse_get_session(fuse_);
  if (fuse_session_receive_buf(session, &buffer_) > 0) fuse_session_process_buf(session, &buffer_);
}

}  // namespace dtb::appimage
