// Reasons of failed system calls in French, and the end of a program whose own invariant is broken.
// A broken invariant writes nothing of the drawing: the file on disk stays as it was.
#include "atelier/base/error.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace atelier {

std::string systemReason(int error) {
  switch (error) {
    case ENOENT: return "fichier ou dossier introuvable";
    case EACCES:
    case EPERM: return "accès refusé";
    case EROFS: return "disque en lecture seule";
    case EISDIR: return "c'est un dossier";
    case ENOTDIR: return "une partie du chemin n'est pas un dossier";
    case ENOSPC:
    case EDQUOT: return "plus de place sur le disque";
    case EFBIG: return "fichier trop grand";
    case ENAMETOOLONG: return "nom trop long";
    case EMFILE:
    case ENFILE: return "trop de fichiers ouverts";
    case EIO: return "erreur du disque";
    default: return std::strerror(error);
  }
}

void invariantBroken(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "kavel: invariant rompu: %s (%s:%d)\n", condition, file, line);
  std::abort();
}

}  // namespace atelier
