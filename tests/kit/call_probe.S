/* void kit_call_probe(Probe*): calls a function as the record says and notes how it left the processor.
 *
 * The arguments are laid at the offset asked for, modulo 16; the callee-saved registers hold marks, the x87 stack is
 * empty and the upper vector halves are zero. The way back finds the record in thread storage, since nothing that the
 * function had in hand may be believed. Offsets are those of `Probe` in call.cpp. */
  .set FN, 0
  .set WORDS, 4
  .set COUNT, 8
  .set OFFSET, 12
  .set AVX, 16
  .set RETURNS_REAL, 20
  .set MARKS, 24          /* ebx, esi, edi, ebp */
  .set OWN_STACK, 40
  .set STACK_BEFORE, 44
  .set CONTROL_BEFORE, 48
  .set MXCSR_BEFORE, 52
  .set RESULT, 56         /* eax, edx */
  .set STACK_AFTER, 64
  .set SAVED, 68          /* ebx, esi, edi, ebp */
  .set FLAGS, 84
  .set MXCSR_AFTER, 88
  .set X87, 92            /* environment, 28 bytes */
  .set REAL, 120
  .set UPPER, 128         /* eight halves of 16 bytes */

  .section .tbss, "awT", @nobits
  .p2align 2
current:
  .zero 4
result_low:
  .zero 4

  .text
  .globl kit_call_probe
  .hidden kit_call_probe
  .type kit_call_probe, @function
kit_call_probe:
  .cfi_startproc
  pushl %ebp
  .cfi_adjust_cfa_offset 4
  pushl %ebx
  .cfi_adjust_cfa_offset 4
  pushl %esi
  .cfi_adjust_cfa_offset 4
  pushl %edi
  .cfi_adjust_cfa_offset 4
  movl 20(%esp), %ebx
  movl %ebx, %gs:current@ntpoff
  movl %esp, OWN_STACK(%ebx)

  cld
  fnstcw CONTROL_BEFORE(%ebx)
  fninit
  fldcw CONTROL_BEFORE(%ebx)
  stmxcsr MXCSR_BEFORE(%ebx)
  cmpl $0, AVX(%ebx)
  je 1f
  vzeroupper
1:
  movl COUNT(%ebx), %ecx
  leal (, %ecx, 4), %eax
  movl %esp, %edi
  subl %eax, %edi
  andl $-16, %edi
  leal -16(%edi), %edi
  addl OFFSET(%ebx), %edi
  movl %edi, %esp
  movl %esp, STACK_BEFORE(%ebx)
  movl WORDS(%ebx), %esi
  rep movsl

  movl FN(%ebx), %eax
  movl MARKS + 4(%ebx), %esi
  movl MARKS + 8(%ebx), %edi
  movl MARKS + 12(%ebx), %ebp
  movl MARKS(%ebx), %ebx
  call *%eax

  movl %eax, %gs:result_low@ntpoff
  movl %gs:current@ntpoff, %eax
  movl %esp, STACK_AFTER(%eax)
  movl OWN_STACK(%eax), %esp
  movl %edx, RESULT + 4(%eax)
  movl %gs:result_low@ntpoff, %ecx
  movl %ecx, RESULT(%eax)
  movl %ebx, SAVED(%eax)
  movl %esi, SAVED + 4(%eax)
  movl %edi, SAVED + 8(%eax)
  movl %ebp, SAVED + 12(%eax)
  pushfl
  popl FLAGS(%eax)
  cld
  stmxcsr MXCSR_AFTER(%eax)
  fnstenv X87(%eax)
  cmpl $0, RETURNS_REAL(%eax)
  je 2f
  cmpw $-1, X87 + 8(%eax)   /* every register tagged empty */
  je 2f
  fstpl REAL(%eax)
2:
  fninit
  fldcw CONTROL_BEFORE(%eax)
  cmpl $0, AVX(%eax)
  je 3f
  vextractf128 $1, %ymm0, UPPER(%eax)
  vextractf128 $1, %ymm1, UPPER + 16(%eax)
  vextractf128 $1, %ymm2, UPPER + 32(%eax)
  vextractf128 $1, %ymm3, UPPER + 48(%eax)
  vextractf128 $1, %ymm4, UPPER + 64(%eax)
  vextractf128 $1, %ymm5, UPPER + 80(%eax)
  vextractf128 $1, %ymm6, UPPER + 96(%eax)
  vextractf128 $1, %ymm7, UPPER + 112(%eax)
  vzeroupper
3:
  popl %edi
  .cfi_adjust_cfa_offset -4
  popl %esi
  .cfi_adjust_cfa_offset -4
  popl %ebx
  .cfi_adjust_cfa_offset -4
  popl %ebp
  .cfi_adjust_cfa_offset -4
  ret
  .cfi_endproc
  .size kit_call_probe, . - kit_call_probe
  .section .note.GNU-stack, "", @progbits
