/* Selection out of an initial entry: reached by a jump from a stub while no build is chosen, so every place where a
 * platform may pass arguments (stack, general and vector registers) must be as the caller left it. */
#ifdef __i386__
  .text
  .hidden noxAutoSelect
  .globl nox_initial_select
  .hidden nox_initial_select
  .type nox_initial_select, @function
nox_initial_select:
  .cfi_startproc
  pushl %eax
  .cfi_adjust_cfa_offset 4
  pushl %ecx
  .cfi_adjust_cfa_offset 4
  pushl %edx
  .cfi_adjust_cfa_offset 4
  subl $64, %esp
  .cfi_adjust_cfa_offset 64
  movups %xmm0, (%esp)
  movups %xmm1, 16(%esp)
  movups %xmm2, 32(%esp)
  movups %xmm3, 48(%esp)
  call noxAutoSelect
  movups (%esp), %xmm0
  movups 16(%esp), %xmm1
  movups 32(%esp), %xmm2
  movups 48(%esp), %xmm3
  addl $64, %esp
  .cfi_adjust_cfa_offset -64
  popl %edx
  .cfi_adjust_cfa_offset -4
  popl %ecx
  .cfi_adjust_cfa_offset -4
  popl %eax
  .cfi_adjust_cfa_offset -4
  ret
  .cfi_endproc
  .size nox_initial_select, . - nox_initial_select
#else
#error "the initial entry of this platform is not written yet"
#endif
  .section .note.GNU-stack, "", @progbits
