// How a public function comes to be: MOX_EXPORT(name, body) puts the body's address into the
// function's slot of the entry-point table and makes the public name a jump through that slot.
// The slot has the type of the public declaration, so a body with another signature does not
// compile. Bodies call bodies, never public names: whoever replaces a slot redirects outside
// callers only. entry_table.ld gathers the slots in alphabetical order. A section that no link
// keeps names what support/attach.cpp has, so that a static link takes it along. Checks, with which
// bodies begin, come along.
#pragma once

#include "frame/checks.h"

#define MOX_EXPORT(name, ...)                                                                 \
  extern "C" [[gnu::used, gnu::visibility("hidden"),                                          \
               gnu::section(".moxsp_entry." #name)]] decltype(&::name) const moxSlot_##name = \
      __VA_ARGS__;                                                                            \
  asm(".pushsection .text.moxsp_jump." #name                                                  \
      ",\"ax\",@progbits\n"                                                                   \
      ".p2align 4\n.globl " #name "\n.type " #name ",@function\n" #name                       \
      ":\n\tendbr64\n\tjmp *moxSlot_" #name "(%rip)\n.size " #name ",.-" #name                \
      "\n.popsection\n.pushsection .moxsp_needs,\"e\",@progbits\n.quad moxAttach\n"           \
      ".popsection")

// For exports that share one body although their element types have different names.
#define MOX_EXPORT_SHARED(name, ...) \
  MOX_EXPORT(name, reinterpret_cast<decltype(&::name)>(__VA_ARGS__))
