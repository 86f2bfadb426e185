// The packed figures as bytes in the program file. The assembler's .incbin spares the compiler the
// work; it supports both ELF and PE.
#if defined(_WIN32)
__asm__(
    ".section .rdata,\"dr\"\n"
#else
__asm__(
    ".section .rodata\n"
#endif
    ".global HopcastEngineFigures\n"
    ".balign 16\n"
    "HopcastEngineFigures:\n"
    ".incbin \"" HOPCAST_ENGINE_FIGURES
    "\"\n"
    ".balign 16\n"
    ".text\n");
