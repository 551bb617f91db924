// In a library that counts what is run of it: writes that after the library's own objects are
// destroyed, so that their end is counted too. A destructor of this priority is the last of all.
extern "C" {
int __llvm_profile_runtime = 0;  // keeps the compiler's runtime from writing earlier
void __llvm_profile_initialize_file();
int __llvm_profile_write_file();
}

namespace {

__attribute__((destructor(101))) void WriteLateProfile() {
  __llvm_profile_initialize_file();
  __llvm_profile_write_file();
}

}  // namespace
