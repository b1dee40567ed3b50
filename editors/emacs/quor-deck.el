;;; quor-deck.el --- Decks of reservoir simulators -*- lexical-binding: t -*-

;; Colours of decks, and the server by eglot (of Emacs 29, or a package).
;; Put it where Emacs loads from, and in your configuration:
;;   (require 'quor-deck)
;; Settings of a project, as its simulator, are in its quor.toml; these take precedence:
;;   (setq quor-deck-settings '(:simulator "Carrow"))

;;; Code:

(defvar quor-deck-program "quor"
  "The program: a path, or a name that is on the PATH.")

(defvar quor-deck-settings nil
  "What the server is told: :simulator, :mode, :root, :strict, :variables.")

(defvar quor-deck-font-lock-keywords
  '(("--.*$" . font-lock-comment-face)
    ("^\\(RUNSPEC\\|GRID\\|EDIT\\|PROPS\\|REGIONS\\|SOLUTION\\|SUMMARY\\|SCHEDULE\\|OPTIMIZE\\)\\_>"
     . font-lock-keyword-face)
    ("^[A-Z][A-Z0-9_+-]*" . font-lock-function-name-face)
    ("'[^'\n]*'" . font-lock-string-face)
    ("\\$[A-Za-z_][A-Za-z0-9_]*" . font-lock-variable-name-face)
    ("/\\(.*\\)$" 1 font-lock-comment-face)))

(defun quor-deck-has-deck (folder)
  "Whether there is a deck in FOLDER."
  (directory-files folder nil "\\.\\(data\\|DATA\\)\\'" t))

(defun quor-deck-project (folder)
  "The project of FOLDER: with the folder of an included file the server would not look for its deck above that folder."
  (let ((root (or (locate-dominating-file folder "quor.toml")
                  (locate-dominating-file folder ".git")
                  (locate-dominating-file folder #'quor-deck-has-deck))))
    (and root (cons 'transient (expand-file-name root)))))

;;;###autoload
(define-derived-mode quor-deck-mode prog-mode "Deck"
  "Major mode for decks of reservoir simulators."
  (setq-local comment-start "-- ")
  (add-hook 'project-find-functions #'quor-deck-project nil t)
  (setq-local font-lock-defaults '(quor-deck-font-lock-keywords t)))

;;;###autoload
(add-to-list 'auto-mode-alist
             '("\\.\\(data\\|DATA\\|inc\\|INC\\|grdecl\\|GRDECL\\|sch\\|SCH\\)\\'" . quor-deck-mode))

(defun quor-deck-server (&rest _)
  "The command of the server, with what it is told."
  (list quor-deck-program "language-server" :initializationOptions (or quor-deck-settings '(:strict :json-false))))

(with-eval-after-load 'eglot
  (add-to-list 'eglot-server-programs '(quor-deck-mode . quor-deck-server)))

(add-hook 'quor-deck-mode-hook 'eglot-ensure)

(provide 'quor-deck)
;;; quor-deck.el ends here
