// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// A message send puts the arguments aside, asks Classes.cpp for the method, puts them back and jumps to it, so that the
// method finds them as its caller left them: in the registers of the System V calling convention. What is sent to
// nothing returns zeros. A result in memory (stret) shifts receiver and selector by one register.

#ifndef __x86_64__
#error "The stand-ins run on x86-64 alone."
#endif

// clang-format off
#define PUT_ASIDE                                                                                                      \
    "push %rbp\n mov %rsp, %rbp\n sub $0xC0, %rsp\n"                                                                   \
    "mov %rdi, (%rsp)\n mov %rsi, 8(%rsp)\n mov %rdx, 16(%rsp)\n mov %rcx, 24(%rsp)\n"                                 \
    "mov %r8, 32(%rsp)\n mov %r9, 40(%rsp)\n mov %rax, 48(%rsp)\n"                                                     \
    "movaps %xmm0, 64(%rsp)\n movaps %xmm1, 80(%rsp)\n movaps %xmm2, 96(%rsp)\n movaps %xmm3, 112(%rsp)\n"             \
    "movaps %xmm4, 128(%rsp)\n movaps %xmm5, 144(%rsp)\n movaps %xmm6, 160(%rsp)\n movaps %xmm7, 176(%rsp)\n"
#define PUT_BACK                                                                                                       \
    "mov %rax, %r11\n"                                                                                                 \
    "mov (%rsp), %rdi\n mov 8(%rsp), %rsi\n mov 16(%rsp), %rdx\n mov 24(%rsp), %rcx\n"                                 \
    "mov 32(%rsp), %r8\n mov 40(%rsp), %r9\n mov 48(%rsp), %rax\n"                                                     \
    "movaps 64(%rsp), %xmm0\n movaps 80(%rsp), %xmm1\n movaps 96(%rsp), %xmm2\n movaps 112(%rsp), %xmm3\n"             \
    "movaps 128(%rsp), %xmm4\n movaps 144(%rsp), %xmm5\n movaps 160(%rsp), %xmm6\n movaps 176(%rsp), %xmm7\n"          \
    "leave\n"

asm(".globl objc_msgSend\n"
    "objc_msgSend:\n"
    "test %rdi, %rdi\n jz 1f\n"
    PUT_ASIDE
    "mov %rsp, %rdi\n call zamber_implementation@PLT\n"
    PUT_BACK
    "jmp *%r11\n"
    "1: xor %eax, %eax\n xor %edx, %edx\n xorps %xmm0, %xmm0\n xorps %xmm1, %xmm1\n ret\n"

    ".globl objc_msgSend_stret\n"
    "objc_msgSend_stret:\n"
    "test %rsi, %rsi\n jz 1f\n"
    PUT_ASIDE
    "lea 8(%rsp), %rdi\n mov %rdx, %rsi\n call zamber_implementation@PLT\n"
    PUT_BACK
    "jmp *%r11\n"
    "1: mov %rdi, %rax\n ret\n"

    ".globl objc_msgSendSuper2\n"
    "objc_msgSendSuper2:\n"
    PUT_ASIDE
    "call zamber_super_implementation@PLT\n"
    PUT_BACK
    "mov (%rdi), %rdi\n jmp *%r11\n");
// clang-format on
